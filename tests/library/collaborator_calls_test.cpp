// When an operation makes its collaborators and in which order it asks them and the data object:
// hosts see both, and neither may hang on how a compiler orders operands.
#include <gtest/gtest.h>

#include <functional>

#include <kt7/host/platform.h>
#include <kt7/questions.h>
#include <kt7/roles/utility_object.h>
#include "roles/data_tool.h"
#include "support/company.h"

namespace kt7 {
namespace {

using Calls = std::vector<std::string>;

struct Utility : roles::StandardUtilityObject {
  Utility(Platform& platform, const roles::KeyedHash& hash, Calls& calls)
      : StandardUtilityObject(platform, hash), calls_(calls) {}
  std::string SqlDateText(Date date) override {
    calls_.push_back("SqlDateText");
    return StandardUtilityObject::SqlDateText(date);
  }
  std::string SqlDateTimeText(Date date, int16_t form) override {
    calls_.push_back("SqlDateTimeText");
    return StandardUtilityObject::SqlDateTimeText(date, form);
  }
  std::string MonthNumberText(int16_t month, int16_t form, int16_t language) override {
    calls_.push_back("MonthNumberText");
    return StandardUtilityObject::MonthNumberText(month, form, language);
  }
  Calls& calls_;
};

struct Tool : roles::StandardDataTool {
  Tool(data::Sessions& sessions, const host::Picker& picker, Calls& calls)
      : StandardDataTool(sessions, picker), calls_(calls) {}
  std::string PrepareSql(const std::string& sql, const std::string& databaseType) override {
    calls_.push_back("PrepareSql");
    return StandardDataTool::PrepareSql(sql, databaseType);
  }
  Calls& calls_;
};

struct RecordingPlatform : host::HostPlatform {
  explicit RecordingPlatform(Calls& calls) : calls_(calls) { setNow(Date::fromYmd(2026, 2, 10)); }
  std::unique_ptr<ado::Connection> createConnection() override {
    calls_.push_back("new Connection");
    return HostPlatform::createConnection();
  }
  std::unique_ptr<UtilityObject> createUtilityObject() override {
    calls_.push_back("new UtilityObject");
    return std::make_unique<Utility>(*this, hash_, calls_);
  }
  std::unique_ptr<DataTool> createDataTool() override {
    calls_.push_back("new DataTool");
    return std::make_unique<Tool>(*sessions(), picker_, calls_);
  }
  std::unique_ptr<SettingStore> createSettingStore() override {
    calls_.push_back("new SettingStore");
    return HostPlatform::createSettingStore();
  }
  Calls& calls_;
  roles::KeyedHash hash_ = [](auto...) { return std::string("hash"); };
  host::Picker picker_ = [](const PickerRequest&, const std::string&, bool) { return ""; };
};

/// The host's data object, and who works where.
struct Caller : host::HostDataObj, ClientObj, AppObj {
  Caller(const std::string& where, Calls& calls) : HostDataObj(where), calls_(calls) {}
  ado::Connection& Connection() override {
    calls_.push_back("Connection");
    return HostDataObj::Connection();
  }
  std::string DatabaseType() override { return noted("DatabaseType", HostDataObj::DatabaseType()); }
  std::string ConnectionString() override {
    return noted("ConnectionString", HostDataObj::ConnectionString());
  }
  int32_t CurrentUserID() override {
    calls_.push_back("CurrentUserID");
    return 7;
  }
  std::string CurrentBranchCode() override { return noted("CurrentBranchCode", "B1"); }
  std::string AppDatabaseConnectionString() override {
    return noted("AppDatabaseConnectionString", HostDataObj::ConnectionString());
  }
  std::string noted(const char* call, std::string answer) {
    calls_.push_back(call);
    return answer;
  }
  Calls& calls_;
};

struct Asking {
  const char* operation;
  std::function<void(HRObject&, Caller&)> call;
  Calls expected;
};

class CollaboratorCalls : public testing::TestWithParam<Asking> {};

TEST_P(CollaboratorCalls, ComeInOrderAndOnFirstUse) {
  test::Company company;
  for (const char* sql :
       {"INSERT INTO KT7TBranch (TBraCode) VALUES ('B1')",
        "INSERT INTO KT7TUserEmpType (TUETTUsrID, TUETTCmGAlias, TUETTEmTCode) VALUES "
        "(7, 'HR', 'M')",
        "INSERT INTO KT7TEmployeeType (TEmTCode, TEMTFlag1, TEMTTotalPeriod, TEMTPaymentPeriod1, "
        "TEMTStartPeriod1, TEMTEndPeriod1, TEMTOTStartPeriod1, TEMTOTEndPeriod1) VALUES ('M', 1, "
        "1, 31, 1, 31, 1, 1)",
        "INSERT INTO KT7TEmpSlipDoc (TEPSNo, TEpSTEmpCode, TEPSCheckGroup, TEpsTSaPDate) VALUES "
        "('N1', 'E1', 1, '2026-01-31')",
        "INSERT INTO KT7TEmpSlipItem (TSmbTEPSNo, TSmbTAMTAlias, TSmbDebit) VALUES "
        "('N1', 'SALARY', 100), ('N1', 'OT', 5)"}) {
    company.run(sql);
  }
  Calls calls;
  RecordingPlatform platform(calls);
  Caller caller(company.connectionString(), calls);
  caller.OpenConnection();
  HRObject hr(platform);
  GetParam().call(hr, caller);
  EXPECT_EQ(calls, GetParam().expected);
}

const Date kDay = Date::fromYmd(2026, 1, 31);

std::string filter(HRObject& hr, Caller& c, KT7HRAccessLevel level) {
  const std::string where = c.HostDataObj::ConnectionString();
  return hr.HRFilterAccessLevel4(7, "", where, where, "", level);
}

const Asking kAsking[] = {
    {"ISOfficeHoliday2",
     [](auto& hr, auto& c) { hr.ISOfficeHoliday2(kDay, c, "B1"); },
     {"new UtilityObject", "SqlDateText", "new DataTool", "DatabaseType", "PrepareSql",
      "ConnectionString"}},
    {"IsFirstPeriodOfYearTR",
     [](auto& hr, auto& c) { hr.IsFirstPeriodOfYearTR("M", kDay, c); },
     {"new UtilityObject", "SqlDateText", "new DataTool", "DatabaseType", "PrepareSql",
      "Connection"}},
    {"UpdatePeriodStatus",
     [](auto& hr, auto& c) { hr.UpdatePeriodStatus(c, false); },
     {"new Connection", "ConnectionString", "new UtilityObject", "SqlDateText", "new DataTool",
      "DatabaseType", "PrepareSql",
      // from the 1st to the 31st, which is the 28th, and of the overtime from the 1st to the 1st
      "MonthNumberText", "MonthNumberText", "MonthNumberText", "MonthNumberText", "MonthNumberText",
      "MonthNumberText", "MonthNumberText"}},
    {"UpdateEmployeeStatus",
     [](auto& hr, auto& c) { hr.UpdateEmployeeStatus(c); },
     {"new Connection", "ConnectionString", "new UtilityObject", "SqlDateTimeText", "SqlDateText",
      "new DataTool", "DatabaseType", "PrepareSql", "SqlDateTimeText", "SqlDateText",
      "DatabaseType", "PrepareSql", "SqlDateText", "DatabaseType", "PrepareSql"}},
    {"GETSectionHourRate",
     [](auto& hr, auto& c) { hr.GETSectionHourRate("S1", c, false); },
     {"new Connection", "ConnectionString"}},
    {"CalcPTAX4",
     [](auto& hr, auto& c) { ask(MonthTax{.pay = Currency::fromWhole(100)}, hr, c); },
     {"new SettingStore", "ConnectionString", "ConnectionString", "ConnectionString",
      "ConnectionString", "ConnectionString", "ConnectionString", "new Connection",
      "ConnectionString", "new DataTool", "DatabaseType", "PrepareSql", "DatabaseType",
      "PrepareSql", "new UtilityObject"}},
    {"SumAmass3TR",
     [](auto& hr, auto& c) { hr.SumAmass3TR("E1", 1, 0, "N1", c, 1); },
     {"Connection", "new DataTool", "Connection", "Connection", "new UtilityObject", "SqlDateText",
      "DatabaseType", "PrepareSql", "Connection",
      // the item that makes the row, and the one that finds it
      "DatabaseType", "PrepareSql", "Connection", "Connection", "Connection", "Connection",
      "Connection", "Connection", "Connection", "DatabaseType", "PrepareSql", "Connection"}},
    {"UpdateEmpActiveAmassTR",
     [](auto& hr, auto& c) { hr.UpdateEmpActiveAmassTR(1, 0, "E1", kDay, c); },
     {"new DataTool", "Connection", "new UtilityObject", "SqlDateText", "DatabaseType",
      "PrepareSql", "Connection", "Connection"}},
    {"UpdatePostionTR",
     [](auto& hr, auto& c) {
       std::string department;
       hr.UpdatePostionTR(c, "E1", kDay, "", "", "", "", department, "", 1, 2);
     },
     {"new DataTool", "Connection", "new UtilityObject", "SqlDateText", "DatabaseType",
      "PrepareSql", "Connection", "Connection", "Connection", "Connection", "Connection",
      "Connection", "Connection"}},
    {"HRFilterOfSalaries",
     [](auto& hr, auto& c) { filter(hr, c, KT7HRAccessLevelAdmin); },
     {"new SettingStore", "new UtilityObject"}},
    {"SelectEmployee4",
     [](auto& hr, auto& c) { hr.SelectEmployee4(c, c, c, false, true, true); },
     {"CurrentUserID", "CurrentBranchCode", "ConnectionString", "AppDatabaseConnectionString",
      "new SettingStore", "new UtilityObject", "SqlDateText", "new DataTool", "ConnectionString"}},
};

INSTANTIATE_TEST_SUITE_P(Operations, CollaboratorCalls, testing::ValuesIn(kAsking),
                         [](const auto& info) { return std::string(info.param.operation); });

}  // namespace
}  // namespace kt7
