#include "fake_object.h"

#include <array>
#include <iterator>

#include "fronts/com/adapters/windows_platform.h"
#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

class FakeFactory : public IClassFactory {
 public:
  explicit FakeFactory(FakeKind& kind) : kind_(kind) {}
  virtual ~FakeFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return newFake(kind_)->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  FakeKind& kind_;
  ULONG references_ = 1;
};

void writeText(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  RegSetKeyValueW(root, key.c_str(), name, REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

FakeMember answers(const char* text) {
  return [text](FakeCall&) { return Variant(text); };
}
FakeMember answers(double number) {
  return [number](FakeCall&) { return Variant(number); };
}
FakeMember answersFirstArgument() {
  return [](FakeCall& call) { return Variant(*call.arguments.at(0)); };
}
FakeMember does() {
  return [](FakeCall&) { return Variant(); };
}
FakeMember fails(HRESULT status, const wchar_t* text) {
  return [status, text](FakeCall& call) {
    call.status = DISP_E_EXCEPTION;
    call.exception.scode = status;
    call.exception.bstrDescription = SysAllocString(text);
    call.exception.bstrSource = SysAllocString(L"The host");
    return Variant();
  };
}

HRESULT FakeObject::QueryInterface(REFIID id, void** object) {
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
                     IsEqualIID(id, __uuidof(IDispatchEx));
  *object = known ? static_cast<IDispatchEx*>(this) : nullptr;
  if (known) AddRef();
  return known ? S_OK : E_NOINTERFACE;
}

ULONG FakeObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT FakeObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT FakeObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  return kind_.onlyExtended ? E_NOTIMPL : GetDispID(names[0], 0, ids);
}

HRESULT FakeObject::GetDispID(BSTR name, DWORD, DISPID* id) {
  const auto at = kind_.members.find(name);
  if (at == kind_.members.end()) return DISP_E_UNKNOWNNAME;
  *id = static_cast<DISPID>(std::distance(kind_.members.begin(), at)) + 1;
  return S_OK;
}

HRESULT FakeObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* out,
                           EXCEPINFO* exception, UINT*) {
  return kind_.onlyExtended ? E_NOTIMPL : answer(id, given, out, exception);
}

HRESULT FakeObject::InvokeEx(DISPID id, LCID, WORD, DISPPARAMS* given, VARIANT* out,
                             EXCEPINFO* exception, IServiceProvider*) {
  return answer(id, given, out, exception);
}

HRESULT FakeObject::answer(DISPID id, DISPPARAMS* given, VARIANT* out, EXCEPINFO* exception) {
  const auto member =
      id == DISPID_VALUE ? kind_.members.find(L"") : std::next(kind_.members.begin(), id - 1);
  if (member == kind_.members.end()) return DISP_E_MEMBERNOTFOUND;
  kind_.calls.push_back(member->first);
  DISPPARAMS inOrder = *given;
  if (automation::putValue(inOrder) != nullptr) inOrder.cNamedArgs = 0;
  const automation::Arguments arguments(inOrder, 16);
  EXCEPINFO ignored{};
  FakeCall call{arguments, exception != nullptr ? *exception : ignored};
  Variant result = member->second(call);
  if (SUCCEEDED(call.status) && out != nullptr) *out = result.release();
  return call.status;
}

ComPtr<IDispatch> newFake(FakeKind& kind) {
  auto* made = new FakeObject(kind);
  ComPtr<IDispatch> object(made);
  made->Release();
  return object;
}

void setProgramId(const wchar_t* role, const wchar_t* progId) {
  const wchar_t* key = adapters::WindowsPlatform::kSettingsKey;
  if (progId != nullptr) {
    writeText(HKEY_CURRENT_USER, key, role, progId);
  } else {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key, role);
  }
}

FakeRole::FakeRole(const wchar_t* role, FakeKind& kind)
    : role_(role), progId_(std::wstring(L"KT7Test.") + role) {
  CLSID classId{};
  CoCreateGuid(&classId);
  std::array<wchar_t, 40> text{};
  StringFromGUID2(classId, text.data(), static_cast<int>(text.size()));
  // Wine looks for program ids among the machine's classes only.
  writeText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\" + progId_ + L"\\CLSID", nullptr,
            text.data());
  auto* factory = new FakeFactory(kind);
  CoRegisterClassObject(classId, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registered_);
  factory->Release();
  setProgramId(role, progId_.c_str());
}

FakeRole::~FakeRole() {
  CoRevokeClassObject(registered_);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + progId_).c_str());
  setProgramId(role_.c_str(), nullptr);
}

}  // namespace kt7::client
