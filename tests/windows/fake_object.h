#pragma once

#include <dispex.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "client.h"
#include "fronts/com/automation/arguments.h"

namespace kt7::client {

/// How a member of a fake object answers: it may raise, or fail with the status that it sets.
struct FakeCall {
  const automation::Arguments& arguments;
  EXCEPINFO& exception;
  HRESULT status = S_OK;
};
using FakeMember = std::function<Variant(FakeCall&)>;

FakeMember answers(const char* text);
FakeMember answers(double number);
FakeMember answersFirstArgument();
FakeMember does();
/// Fails as Invoke does, with details whose source is "The host".
FakeMember fails(HRESULT status, const wchar_t* text);

/// What fake objects of one kind share: their members by name, where "" is the default one, and
/// what was called.
struct FakeKind {
  std::map<std::wstring, FakeMember> members;
  std::vector<std::wstring> calls;
  int living = 0;
  bool onlyExtended = false;  // names are known to IDispatchEx alone, as script classes have it
};

/// An object of the host in a test.
class FakeObject : public IDispatchEx {
 public:
  explicit FakeObject(FakeKind& kind) : kind_(kind) { ++kind_.living; }
  virtual ~FakeObject() { --kind_.living; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  ULONG references() const { return references_; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given,
                                   VARIANT* answer, EXCEPINFO* exception, UINT*) override;
  HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD, DISPID* id) override;
  HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID, WORD, DISPPARAMS* given, VARIANT* answer,
                                     EXCEPINFO* exception, IServiceProvider*) override;
  HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

 private:
  HRESULT answer(DISPID id, DISPPARAMS* given, VARIANT* answer, EXCEPINFO* exception);

  FakeKind& kind_;
  ULONG references_ = 1;
};

ComPtr<IDispatch> newFake(FakeKind& kind);

/// A program id whose objects are fakes of a kind, while this lives; the library
/// takes it for `role`.
class FakeRole {
 public:
  FakeRole(const wchar_t* role, FakeKind& kind);
  FakeRole(const FakeRole&) = delete;
  FakeRole& operator=(const FakeRole&) = delete;
  ~FakeRole();

 private:
  std::wstring role_;
  std::wstring progId_;
  DWORD registered_ = 0;
};

/// Names the program id that the library takes for a role; null takes the setting away.
void setProgramId(const wchar_t* role, const wchar_t* progId);

}  // namespace kt7::client
