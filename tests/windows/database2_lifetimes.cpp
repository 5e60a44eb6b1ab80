// Makes and lets go of objects of KT7Database2.dll by the thousand and asks the DLL whether any is
// left.
#include <array>
#include <atomic>
#include <exception>
#include <thread>

#include <kt7/error.h>
#include "checks.h"
#include "client.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

using automation::createByProgId;

constexpr int kTimes = 10000;
constexpr int kStatements = 100;
constexpr int kPicks = 5000;
constexpr std::size_t kLongAnswer = 40;

constexpr std::array kPrograms{
    L"KT7Database2.DataObj",       L"KT7Database2.AppObj",    L"KT7Database2.ClientObj",
    L"KT7Database2.UtilityObject", L"KT7Database2.DataTool",  L"KT7Database2.SettingStore",
    L"KT7Database2.Connection",    L"KT7Database2.Recordset", L"KT7Database2.Payroll"};

void makeMany(const Library& library, const wchar_t* program) {
  const std::string name = automation::toUtf8(program);
  {
    const LateObject one = createByProgId(program);
    checkStatus(library.canUnload(), S_FALSE, name + " counts while it lives");
  }
  // The registry is asked once: asking it takes most of a creation.
  ComPtr<IClassFactory> factory;
  CoGetClassObject(automation::classOf(program), CLSCTX_INPROC_SERVER, nullptr,
                   IID_PPV_ARGS(&factory));
  int made = 0;
  for (int i = 0; factory && i < kTimes; ++i) {
    ComPtr<IDispatch> object;
    if (SUCCEEDED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)))) ++made;
  }
  factory.Reset();
  check(made == kTimes && library.canUnload() == S_OK, name + " leaves nothing");
}

/// Objects that answer objects, down to a field, and a call that fails on the way.
bool asksForRows(const std::string& database) {
  const LateObject data = createByProgId(L"KT7Database2.DataObj");
  data.put(L"ConnectionString", "Driver=SQLite;Database=" + database);
  data.run(L"OpenConnection");
  const LateObject rows = data.child(data.child(data.call(L"Connection"), "Connection")
                                         .call(L"Execute", "SELECT TEmpCode FROM KT7TEmployee"),
                                     "Recordset");
  const LateObject field =
      rows.child(rows.child(rows.call(L"Fields"), "Fields").call(L"Item", "TEmpCode"), "Field");
  if (automation::toValue(field.call(L"Value").raw()).joinedText() != "E0001") return false;
  try {
    rows.call(L"Fields", "Nothing");
    return false;
  } catch (const Error&) {
    return true;
  }
}

/// Every apartment says what pickers answer, and asks them, all at once.
void pick(char letter, std::atomic<int>& wrong) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  try {
    const LateObject client = createByProgId(L"KT7Database2.ClientObj");
    const LateObject tool = createByProgId(L"KT7Database2.DataTool");
    const Variant answer(std::string(kLongAnswer, letter));
    for (int i = 0; i < kPicks; ++i) {
      client.put(L"PickerAnswer", answer);
      const Variant picked = tool.call(L"ShowPicker", "", "", "", "", "", "", "", "");
      const auto text = automation::fromVariant<std::string>(picked.raw());
      if (text != std::string(kLongAnswer, text.front())) ++wrong;
    }
  } catch (const std::exception&) {
    ++wrong;
  }
  CoUninitialize();
}

}  // namespace

void testDatabase2Lifetimes(const Library& library, const std::string& database) {
  for (const wchar_t* const program : kPrograms) makeMany(library, program);
  bool right = true;
  for (int i = 0; i < kStatements; ++i) right = asksForRows(database) && right;
  check(right && library.canUnload() == S_OK, "connections, recordsets and fields leave nothing");

  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (const char letter : {'a', 'b', 'c', 'd'})
    threads.emplace_back(pick, letter, std::ref(wrong));
  for (std::thread& thread : threads) thread.join();
  check(wrong == 0, "pickers that are answered and asked from several apartments");
}

}  // namespace kt7::client
