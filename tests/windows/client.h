#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <string>

#include "KT7HRLib.h"
#include "fronts/com/automation/late_object.h"

/// What the groups of tests share.
namespace kt7::client {

using automation::LateObject;
using automation::Variant;
using Microsoft::WRL::ComPtr;

/// The DLL under test, by the path that main was given.
class Library {
 public:
  explicit Library(const std::wstring& path);

  template <typename Function>
  Function entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  HRESULT install(bool install, const wchar_t* scope) const;
  HRESULT canUnload() const;
  const std::wstring& path() const { return path_; }

 private:
  std::wstring path_;
  HMODULE module_;
};

template <typename Interface>
ComPtr<Interface> create(REFCLSID classId, IUnknown* outer = nullptr) {
  ComPtr<Interface> object;
  CoCreateInstance(classId, outer, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
  return object;
}

/// The text of the thread's error information, and its source.
struct ErrorText {
  std::string text;
  std::string source;
};
ErrorText takeErrorText();

void testRegistration(const Library& library);
void testTypeLibrary();
void testCalls();
void testProfile();
void testHostObjects();
void testSelfCalls();
void testLifetimes(const Library& library);
void testThreads();

}  // namespace kt7::client
