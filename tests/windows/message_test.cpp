#include <algorithm>

#include "checks.h"
#include "fake_company.h"
#include "fronts/com/adapters/windows_platform.h"
#include "fronts/com/automation/text.h"

namespace {

struct Box {
  std::wstring text;
  UINT type = 0;
};
Box shown;

int WINAPI pressOk(HWND, LPCWSTR text, LPCWSTR, UINT type) {
  shown = {text, type};
  return IDOK;
}

std::string debuggerOutput;

/// The system hands the debugger its texts in the machine's code page.
LONG CALLBACK listen(EXCEPTION_POINTERS* raised) {
  const EXCEPTION_RECORD& record = *raised->ExceptionRecord;
  if (record.ExceptionCode == DBG_PRINTEXCEPTION_C) {
    debuggerOutput += reinterpret_cast<const char*>(record.ExceptionInformation[1]);
  }
  return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

// Stands before the system's own for what is linked into this program; the DLL keeps that one.
extern "C" {
decltype(&MessageBoxW) __imp_MessageBoxW = &pressOk;
}

namespace kt7::client {

namespace {

constexpr HRESULT kStatementFailed = static_cast<HRESULT>(0x80040E14);

/// What comes to standard error and to a debugger while this lives.
class Output {
 public:
  Output() : listener_(AddVectoredExceptionHandler(1, &listen)) {
    debuggerOutput.clear();
    file_ = CreateFileW(L"errors.txt", GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                        FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    SetStdHandle(STD_ERROR_HANDLE, file_);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() {
    SetStdHandle(STD_ERROR_HANDLE, before_);
    CloseHandle(file_);
    RemoveVectoredExceptionHandler(listener_);
  }
  std::string errors() const {
    std::string text(4096, ' ');
    DWORD read = 0;
    SetFilePointer(file_, 0, nullptr, FILE_BEGIN);
    ReadFile(file_, text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
    text.resize(read);
    return text;
  }

 private:
  HANDLE before_ = GetStdHandle(STD_ERROR_HANDLE);
  HANDLE file_;
  void* listener_;
};

/// A failure inside the operation's own transaction is a message, which nobody sees here.
void testUnseen() {
  FakeCompany company(2);
  company.connection.members[L"Execute"] = fails(kStatementFailed, L"ตาราง\nหาย");
  const auto hr = create<::_HRObject>(__uuidof(HRObject));
  const Output output;
  checkStatus(hr->UpdateEmployeeStatus(company.dataObj()), S_OK, "a message is no error");
  const std::string line = output.errors();
  check(line.find("Print Screen") != std::string::npos && line.ends_with(" - ตาราง หาย\r\n"),
        "it is a line on standard error");
  check(debuggerOutput.find("Print Screen") != std::string::npos &&
            debuggerOutput.find('\n') == debuggerOutput.size() - 1,
        "and one in the debugger's output");
  const auto& calls = company.connection.calls;
  check(std::find(calls.begin(), calls.end(), L"RollbackTrans") != calls.end() &&
            calls.back() == L"Close",
        "rolled back and closed before");
  checkEqual(std::to_string(company.connection.living), "0",
             "the operation's own connection is released");
}

void testBox() {
  const Output output;
  adapters::WindowsPlatform().showMessage("ตาราง\nหาย");
  checkEqual(automation::toUtf8(shown.text), "ตาราง\nหาย", "a message that a person sees");
  check((shown.type & (MB_TYPEMASK | MB_ICONMASK)) == MB_OK, "has an OK button and no icon");
  checkEqual(output.errors() + debuggerOutput, "", "and is told nowhere else");
}

/// Where the transaction could not begin there is nothing to roll back, which is the call's error.
void testRollback() {
  FakeCompany company(2);
  company.connection.members[L"Open"] = fails(kStatementFailed, L"ตารางหาย");
  company.connection.members[L"RollbackTrans"] = fails(static_cast<HRESULT>(0x800A0E78), L"ปิดอยู่");
  const auto hr = create<::_HRObject>(__uuidof(HRObject));
  checkStatus(hr->UpdateEmployeeStatus(company.dataObj()), static_cast<HRESULT>(0x800A0E78),
              "the number of a rollback's own failure");
  const ErrorText error = takeErrorText();
  checkEqual(error.source + ": " + error.text, "The host: ปิดอยู่", "its text and source");
}

}  // namespace

void testMessages() {
  testUnseen();
  testBox();
  testRollback();
}

}  // namespace kt7::client
