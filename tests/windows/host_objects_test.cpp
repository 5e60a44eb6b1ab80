#include <kt7/currency.h>
#include "checks.h"
#include "fake_object.h"
#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

constexpr HRESULT kCannotCreate = static_cast<HRESULT>(0x800A01AD);
constexpr HRESULT kStatementFailed = static_cast<HRESULT>(0x80040E14);

/// Every day is paid 1000 baht.
void payAThousandADay(FakeKind& dataTool) {
  dataTool.members[L"LookupText"] = answers("M1");
  dataTool.members[L"LookupFieldText"] = answers("M1");
  dataTool.members[L"LookupNumber"] = answers(2.0);
  dataTool.members[L"LookupDouble"] = [](FakeCall& call) {
    const bool typeOfSalary = call.arguments.get<std::string>(5) == "TEmTSalaryType";
    return Variant(typeOfSalary ? 2.0 : 1000.0);
  };
  dataTool.members[L"PrepareSql"] = answersFirstArgument();
}

FakeKind dataObject() {
  FakeKind kind;
  kind.members[L"ConnectionString"] = answers("the database");
  kind.members[L"DatabaseType"] = answers("SQLITE");
  kind.members[L"OpenConnection"] = does();
  kind.members[L"CloseConnection"] = does();
  return kind;
}

struct DayRate {
  HRESULT status;
  double value = 0;
  ErrorText error;
};

DayRate dayRate(::_HRObject& hr, IDispatch* dataObj) {
  const automation::BstrText employee("E0001");
  DayRate rate{};
  rate.status = hr.GETDAYRATE(employee, &dataObj, &rate.value);
  if (FAILED(rate.status)) rate.error = takeErrorText();
  return rate;
}

void testCreation() {
  FakeKind data = dataObject();
  FakeKind tool;
  payAThousandADay(tool);
  const auto dataObj = newFake(data);
  const auto hr = create<::_HRObject>(__uuidof(HRObject));
  setProgramId(L"DataTool", L"KT7Test.NotThere");
  const DayRate refused = dayRate(*hr.Get(), dataObj.Get());
  checkStatus(refused.status, kCannotCreate, "a program id that is not registered");
  check(refused.error.text.find("KT7Test.NotThere") != std::string::npos, "the error names it");

  const FakeRole role(L"DataTool", tool);
  check(tool.living == 0, "nothing is made before it is used");
  const DayRate paid = dayRate(*hr.Get(), dataObj.Get());
  checkStatus(paid.status, S_OK, "a creation that failed is tried again");
  check(paid.value == 1000, "the answer of the host's object");
  dayRate(*hr.Get(), dataObj.Get());
  check(tool.living == 1, "made once");

  setProgramId(L"UtilityObject", L"KT7Test.NotThere");
  ComPtr<IDispatch> profile;
  checkStatus(CoCreateInstance(__uuidof(EmployeeObject), nullptr, CLSCTX_INPROC_SERVER,
                               IID_PPV_ARGS(&profile)),
              kCannotCreate, "a profile needs its utilities at once");
  check(takeErrorText().text.find("KT7Test.NotThere") != std::string::npos, "and names them");
  setProgramId(L"UtilityObject", nullptr);
}

/// A class that the registry names and nobody makes.
void testCannotBeMade() {
  const std::wstring key = L"Software\\Classes\\KT7Test.Unmade\\CLSID";
  const std::wstring nobody = L"{6D1F3A52-0C3B-4E0C-9B67-1B5A0E6A7C11}";
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, nobody.c_str(),
                  static_cast<DWORD>((nobody.size() + 1) * sizeof(wchar_t)));
  setProgramId(L"Connection", L"KT7Test.Unmade");
  FakeKind data = dataObject();
  const auto dataObj = newFake(data);
  IDispatch* given = dataObj.Get();
  create<::_HRObject>(__uuidof(HRObject))->UpdateEmployeeStatus(&given);
  check(takeErrorText().text.find("'KT7Test.Unmade'") != std::string::npos,
        "a connection that cannot be made is named by its program id");
  setProgramId(L"Connection", nullptr);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\KT7Test.Unmade");
}

/// Some hosts pass their objects by the interface that every object has.
void testUnknown() {
  FakeKind data = dataObject();
  const auto dataObj = newFake(data);
  FakeKind tool;
  payAThousandADay(tool);
  const FakeRole role(L"DataTool", tool);
  const auto hr = create<IDispatch>(__uuidof(HRObject));
  const Variant employee("E0001");
  IUnknown* unknown = dataObj.Get();
  VARIANT byValue{};
  byValue.vt = VT_UNKNOWN;
  byValue.punkVal = unknown;
  VARIANT byReference{};
  byReference.vt = VT_BYREF | VT_UNKNOWN;
  byReference.ppunkVal = &unknown;
  for (const VARIANT& object : {byValue, byReference}) {
    const Outcome rate = call(hr.Get(), L"GETDAYRATE", {employee.raw(), object});
    checkEqual(rate.text, "", "a data object as an unknown one");
    check(rate.answer.raw().vt == VT_R8 && rate.answer.raw().dblVal == 1000,
          "a data object as an unknown one");
  }
  dataObj->AddRef();
  check(dataObj->Release() == 1, "no reference to it is kept");
}

void testFailures() {
  FakeKind data = dataObject();
  const auto dataObj = newFake(data);
  FakeKind tool;
  payAThousandADay(tool);
  const FakeRole role(L"DataTool", tool);
  const auto hr = create<::_HRObject>(__uuidof(HRObject));

  tool.members[L"LookupText"] = fails(kStatementFailed, L"ตารางหาย");
  tool.members[L"LookupFieldText"] = tool.members[L"LookupText"];
  DayRate rate = dayRate(*hr.Get(), dataObj.Get());
  checkStatus(rate.status, kStatementFailed, "the status of a host's object");
  checkEqual(rate.error.text, "ตารางหาย", "the text of a host's object");
  checkEqual(rate.error.source, "The host", "the source of a host's object");

  tool.members[L"LookupText"] = fails(static_cast<HRESULT>(0x800A0005), L"bad call");
  tool.members[L"LookupFieldText"] = tool.members[L"LookupText"];
  rate = dayRate(*hr.Get(), dataObj.Get());
  checkStatus(rate.status, automation::statusOf(5), "a number of the platform's own");

  // The status by which Invoke itself says that it does not know a member.
  tool.members[L"LookupText"] = fails(DISP_E_MEMBERNOTFOUND, L"ไม่มีแถว");
  tool.members[L"LookupFieldText"] = tool.members[L"LookupText"];
  const Variant employee("E0001");
  const Variant object(dataObj.Get());
  const Outcome named = call(hr.Get(), L"GETDAYRATE", {employee.raw(), object.raw()});
  checkStatus(named.status, DISP_E_EXCEPTION, "an unknown member of a host's object");
  checkStatus(named.scode, DISP_E_MEMBERNOTFOUND, "keeps its status");
  checkEqual(named.source + ": " + named.text, "The host: ไม่มีแถว", "and its text");

  tool.members[L"LookupText"] = [](FakeCall& call) {
    call.status = E_ACCESSDENIED;
    return Variant();
  };
  tool.members[L"LookupFieldText"] = tool.members[L"LookupText"];
  rate = dayRate(*hr.Get(), dataObj.Get());
  checkStatus(rate.status, E_ACCESSDENIED, "a status without details");
  check(rate.error.text.find("Lookup") != std::string::npos, "the text names the member");

  FakeKind bare;
  {
    const FakeRole bareRole(L"DataTool", bare);
    rate = dayRate(*create<::_HRObject>(__uuidof(HRObject)).Get(), dataObj.Get());
    checkStatus(rate.status, automation::statusOf(440), "a member that the object lacks");
  }

  payAThousandADay(tool);
  rate = dayRate(*hr.Get(), nullptr);
  checkStatus(rate.status, automation::statusOf(440), "a data object that is not set");
}

void testScriptClasses() {
  FakeKind data = dataObject();
  data.onlyExtended = true;
  const auto dataObj = newFake(data);
  FakeKind tool;
  payAThousandADay(tool);
  tool.onlyExtended = true;
  const FakeRole role(L"DataTool", tool);
  const auto hr = create<::_HRObject>(__uuidof(HRObject));
  const DayRate rate = dayRate(*hr.Get(), dataObj.Get());
  checkStatus(rate.status, S_OK, "objects that IDispatchEx alone knows");
  check(rate.value == 1000, "objects that IDispatchEx alone knows");
}

}  // namespace

void testHostObjects() {
  testCreation();
  testCannotBeMade();
  testUnknown();
  testFailures();
  testScriptClasses();
}

}  // namespace kt7::client
