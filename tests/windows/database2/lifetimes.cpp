// Makes and lets go of objects of KT7Database2.dll by the thousand and asks the DLL whether any is
// left. Ends with the line "N passed, M failed".
//   kt7lifetimes DLL DATABASE

#include <objbase.h>
#include <windows.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <exception>
#include <string>
#include <thread>
#include <vector>

#include <kt7/error.h>
#include "fronts/com/automation/late_object.h"
#include "fronts/com/automation/text.h"

namespace {

using kt7::automation::LateObject;
using kt7::automation::Variant;

constexpr int kTimes = 10000;
constexpr int kStatements = 100;
constexpr int kThreads = 4;
constexpr int kPicks = 5000;
constexpr std::size_t kLongAnswer = 40;

constexpr std::array kPrograms{
    L"KT7Database2.DataObj",       L"KT7Database2.AppObj",    L"KT7Database2.ClientObj",
    L"KT7Database2.UtilityObject", L"KT7Database2.DataTool",  L"KT7Database2.SettingStore",
    L"KT7Database2.Connection",    L"KT7Database2.Recordset", L"KT7Database2.Payroll"};

/// What is left in the DLL: S_OK nothing, S_FALSE something.
class Left {
 public:
  explicit Left(const char* path)
      : ask_(reinterpret_cast<Ask>(
            reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(path), "DllCanUnloadNow")))) {}
  bool nothing() const { return ask_ != nullptr && ask_() == S_OK; }

 private:
  using Ask = HRESULT(STDAPICALLTYPE*)();
  Ask ask_;
};

int passed = 0;
int failed = 0;

void check(bool ok, const std::string& name) {
  ++(ok ? passed : failed);
  if (!ok) std::printf("FAILED: %s\n", name.c_str());
}

void makeMany(const Left& left, const wchar_t* program) {
  const std::string name = kt7::automation::toUtf8(program);
  {
    const LateObject one = kt7::automation::createByProgId(program);
    check(!left.nothing(), name + " counts while it lives");
  }
  // The registry is asked once: asking it takes most of a creation.
  kt7::automation::ComPtr<IClassFactory> factory;
  const CLSID id = kt7::automation::classOf(program);
  if (FAILED(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory)))) {
    check(false, name + " has a factory");
    return;
  }
  for (int i = 0; i < kTimes; ++i) {
    kt7::automation::ComPtr<IDispatch> made;
    if (FAILED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&made)))) {
      check(false, name + " is made");
      return;
    }
  }
  factory.Reset();
  check(left.nothing(), name + " leaves nothing");
}

/// Objects that answer objects, down to a field, and a call that fails on the way.
void askForRows(const Left& left, const std::string& database) {
  for (int i = 0; i < kStatements; ++i) {
    const LateObject data = kt7::automation::createByProgId(L"KT7Database2.DataObj");
    data.put(L"ConnectionString", Variant("Driver=SQLite;Database=" + database));
    data.run(L"OpenConnection");
    const Variant connection = data.call(L"Connection");
    const Variant rows =
        data.child(connection, "Connection").call(L"Execute", "SELECT TEmpCode FROM KT7TEmployee");
    const LateObject recordset = data.child(rows, "Recordset");
    const Variant fields = recordset.call(L"Fields");
    const Variant field = recordset.child(fields, "Fields").call(L"Item", "TEmpCode");
    const Variant value = recordset.child(field, "Field").call(L"Value");
    if (kt7::automation::fromVariant<std::string>(value.raw()) != "E0001") {
      check(false, "the first employee");
    }
    try {
      recordset.call(L"Fields", "Nothing");
      check(false, "a column that is not there");
    } catch (const kt7::Error&) {
      continue;
    }
  }
  check(left.nothing(), "connections, recordsets and fields leave nothing");
}

/// Every apartment says what pickers answer, and asks them, all at once.
void pickAtOnce() {
  std::atomic<int> wrong{0};
  const auto pick = [&wrong](char letter) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    try {
      const LateObject client = kt7::automation::createByProgId(L"KT7Database2.ClientObj");
      const LateObject tool = kt7::automation::createByProgId(L"KT7Database2.DataTool");
      const Variant answer(std::string(kLongAnswer, letter));
      for (int i = 0; i < kPicks; ++i) {
        client.put(L"PickerAnswer", answer);
        const Variant picked = tool.call(L"ShowPicker", "", "", "", "", "", "", "", "");
        const auto text = kt7::automation::fromVariant<std::string>(picked.raw());
        if (text != std::string(kLongAnswer, text.front())) ++wrong;
      }
    } catch (const std::exception&) {
      ++wrong;
    }
    CoUninitialize();
  };
  std::vector<std::thread> threads;
  for (char letter = 'a'; letter < 'a' + kThreads; ++letter) threads.emplace_back(pick, letter);
  for (std::thread& thread : threads) thread.join();
  check(wrong == 0, "pickers that are answered and asked from several apartments");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("usage: kt7lifetimes DLL DATABASE\n", stderr);
    return 2;
  }
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  try {
    const Left left(arguments[1]);
    for (const wchar_t* const program : kPrograms) makeMany(left, program);
    askForRows(left, arguments[2]);
    pickAtOnce();
  } catch (const std::exception& error) {
    check(false, error.what());
  }
  std::printf("%d passed, %d failed\n", passed, failed);
  CoUninitialize();
  return failed == 0 ? 0 : 1;
}
