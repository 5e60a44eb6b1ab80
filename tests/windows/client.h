#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

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

/// What a call by name answered.
struct Outcome {
  HRESULT status = S_OK;
  Variant answer;
  HRESULT scode = S_OK;
  std::string text;
  std::string source;
};

/// A call by name as a script host makes it. `names` are the names of the last arguments.
Outcome call(IDispatch* object, std::wstring member, std::vector<VARIANT> arguments,
             std::vector<std::wstring> names = {}, WORD flags = DISPATCH_METHOD);

void testRegistration(const Library& library);
void testTypeLibrary();
void testCalls();
void testByReference();
void testProfile();
void testHostObjects();
void testMessages();
void testSelfCalls();
void testLifetimes(const Library& library);
void testThreads();
void testDatabase2Lifetimes(const Library& library, const std::string& database);

/// Makes every call of the list and compares with what the native library answered on the same
/// database, a line a call in both files. Answers the number of checks.
int testAnswers(const std::string& callsFile, const std::string& answersFile,
                const std::string& connectionString);

}  // namespace kt7::client
