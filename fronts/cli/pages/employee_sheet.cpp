#include "employee_sheet.h"

#include <array>
#include <stdexcept>

#include <kt7/employee_object.h>
#include <kt7/hr_object.h>
#include "base/text.h"
#include "support/opened.h"
#include "support/sql_text.h"

namespace kt7::cli {

namespace {

/// A field as JSON; null stays null.
Json jsonOf(const Value& value) {
  if (value.isNull()) return nullptr;
  if (const auto* money = std::get_if<Currency>(&value.storage())) return toJson(*money);
  if (const auto* date = std::get_if<Date>(&value.storage())) return toJson(*date);
  if (const auto* text = std::get_if<std::string>(&value.storage())) return *text;
  if (const auto* number = std::get_if<double>(&value.storage())) return *number;
  return value.toInt32();
}

struct SheetColumn {
  const char* name;
  const char* column;
};

template <std::size_t Count>
Json jsonRow(ado::Recordset& row, const std::array<SheetColumn, Count>& columns) {
  Json json;
  for (const SheetColumn& each : columns) json[each.name] = jsonOf(row.get(each.column));
  return json;
}

constexpr std::array<SheetColumn, 23> kProfile{{{"EmployeeCode", "TEmpCode"},
                                                {"EmployeeNo", "TEmpNo"},
                                                {"Prefix", "TEmpPrefix"},
                                                {"FirstName", "TEmpFirstName"},
                                                {"MiddleName", "TEmpMiddleName"},
                                                {"LastName", "TEmpLastName"},
                                                {"Status", "TEmpStatus"},
                                                {"SignDate", "TEmpSignDate"},
                                                {"ResignDate", "TEmpResignDate"},
                                                {"EmployeeType", "TEmpTEmTCode"},
                                                {"Branch", "TEmpTBraCode"},
                                                {"BranchName", "TBraName"},
                                                {"Division", "TEmpTDivCode"},
                                                {"DivisionName", "TDivName"},
                                                {"Department", "TEmpTDepCode"},
                                                {"DepartmentName", "TDepName"},
                                                {"Section", "TEmpTSecCode"},
                                                {"SectionName", "TSecName"},
                                                {"Position", "TEmpTPstCode"},
                                                {"PositionName", "TPstName"},
                                                {"Salary", "TEmpSalary"},
                                                {"Custom", "TEmpCustom"},
                                                {"LastSalaryDate", "TEmpLastSalaryDate"}}};

constexpr std::array<SheetColumn, 9> kHistory{{{"Line", "TEHPLn"},
                                               {"From", "TEHPStartDate"},
                                               {"Position", "TEHPPosition"},
                                               {"Branch", "TEHPBranch"},
                                               {"Division", "TEHPDivision"},
                                               {"Department", "TEHPDepartment"},
                                               {"Section", "TEHPSection"},
                                               {"Salary", "TEHPSalary"},
                                               {"Custom", "TEHPCustom"}}};

constexpr std::array<SheetColumn, 5> kLeave{{{"LeaveType", "TELaTLvtCode"},
                                             {"LeaveName", "TLvtName"},
                                             {"Allowed", "TELaAllowDay"},
                                             {"Carried", "TELaCarryDay"},
                                             {"Used", "TELaUsedDay"}}};

/// Money of the balances that the sheet adds up.
constexpr std::array<SheetColumn, 9> kBalances{{{"Salary", "TEATAddSalary"},
                                                {"Overtime", "TEATAddOT"},
                                                {"Income", "TEATAddTotal"},
                                                {"SocialSecurity", "TEATCutSTAX"},
                                                {"FundEmployee", "TEATCutSFund"},
                                                {"Tax", "TEATCutTAX"},
                                                {"Deductions", "TEATCutTotal"},
                                                {"Bonus", "TEATSubTipBonus"},
                                                {"Net", "TEATNetTotal"}}};

class SheetMaker {
 public:
  SheetMaker(Platform& platform, DataObj& dataObj, const std::string& code, Date on)
      : platform_(platform),
        dataObj_(dataObj),
        dataTool_(platform.createDataTool()),
        utility_(platform.createUtilityObject()),
        hr_(platform),
        code_(code),
        on_(on) {}

  Json make();

 private:
  template <typename Read>
  void forEach(const std::string& sql, Read read) {
    OpenRecordset rows(platform_, dataTool_->PrepareSql(sql, dataObj_.DatabaseType()),
                       dataObj_.Connection());
    for (; !rows->Eof(); rows->MoveNext()) read(*rows);
    rows.close();
  }
  std::string dateText(Date day) const { return dateLiteral(utility_->SqlDateText(day)); }

  Json profile();
  Json rates();
  Json hours();
  Json service();
  Json fund();
  Json history();
  Json leave();
  Json balances();

  Platform& platform_;
  DataObj& dataObj_;
  std::unique_ptr<DataTool> dataTool_;
  std::unique_ptr<UtilityObject> utility_;
  HRObject hr_;
  std::string code_;
  Date on_;
  std::string typeCode_;
  Value signDate_;
};

Json SheetMaker::profile() {
  Json json;
  forEach("SELECT * FROM KT7VEmployee WHERE TEmpCode='" + code_ + "'", [&](ado::Recordset& row) {
    json = jsonRow(row, kProfile);
    typeCode_ = row.get("TEmpTEmTCode").joinedText();
    signDate_ = row.get("TEmpSignDate");
  });
  if (json.is_null()) throw std::runtime_error("there is no employee '" + code_ + "'");
  return json;
}

Json SheetMaker::rates() {
  return {{"DayRate", hr_.GETDAYRATE(code_, dataObj_)},
          {"HourRate", hr_.GETHOURRATE(code_, dataObj_)}};
}

Json SheetMaker::hours() {
  Json json{{"TypeName", nullptr}};
  forEach("SELECT TEmTName FROM KT7TEmployeeType WHERE TEmTCode='" + typeCode_ + "'",
          [&](ado::Recordset& row) { json["TypeName"] = jsonOf(row.get("TEmTName")); });
  EmployeeObject type(platform_);
  type.SetTypeCode(typeCode_, dataObj_);
  json["SalaryType"] = type.SalaryType();
  json["HoursPerDay"] = type.HourPerDay();
  json["HoursPerWeek"] = type.HourPerWeek();
  json["HoursPerMonth"] = type.HourPerMonth();
  json["DaysPerMonth"] = type.DayPerMonth();
  return json;
}

Json SheetMaker::service() {
  return {{"Text", hr_.CountWorkDayString(dataObj_, code_, on_)},
          {"Years", hr_.CountWorkCompletedYear(dataObj_, code_, on_)},
          {"Months", hr_.CountWorkCompletedMonth(dataObj_, code_, on_)}};
}

Json SheetMaker::fund() {
  Json json{{"EmployerRate", nullptr}, {"Member", nullptr}, {"OwnRate", nullptr}};
  if (!signDate_.isNull()) {
    json["EmployerRate"] = hr_.GetSFUNDRate(dataObj_, typeCode_, signDate_.toDate(), on_);
  }
  forEach(
      "SELECT TEm2FundMember,TEm2FundRate FROM KT7TEmployee2 WHERE TEm2TEmpCode='" + code_ + "'",
      [&](ado::Recordset& row) {
        const Value member = row.get("TEm2FundMember");
        json["Member"] = !member.isNull() && member.toInt32() != 0;
        json["OwnRate"] = jsonOf(row.get("TEm2FundRate"));
      });
  return json;
}

Json SheetMaker::history() {
  Json rows = Json::array();
  forEach("SELECT * FROM KT7TEmpHisPosition WHERE TEHPTEmpCode='" + code_ + "' ORDER BY TEHPLn",
          [&](ado::Recordset& row) { rows.push_back(jsonRow(row, kHistory)); });
  return rows;
}

Json SheetMaker::leave() {
  const std::int16_t period = hr_.GetEmployeeLeaveYear(dataObj_, on_);
  Json json{{"Year", period}, {"Name", nullptr}, {"Allowances", Json::array()}};
  if (period == 0) return json;
  const std::string number = std::to_string(period);
  forEach("SELECT TLPDName FROM KT7TEmpLeavePeriod WHERE TLPDID=" + number,
          [&](ado::Recordset& row) { json["Name"] = jsonOf(row.get("TLPDName")); });
  forEach(
      "SELECT TELaTLvtCode,TLvtName,TELaAllowDay,TELaCarryDay,TELaUsedDay FROM KT7TEmpLeaveAllow "
      "LEFT JOIN KT7TEmpLeaveType ON TLvtCode=TELaTLvtCode WHERE TELATEmpCode='" +
          code_ + "' AND TELaTLPDID=" + number + " ORDER BY TELaTLvtCode",
      [&](ado::Recordset& row) { json["Allowances"].push_back(jsonRow(row, kLeave)); });
  return json;
}

Json SheetMaker::balances() {
  std::array<Currency, kBalances.size()> sums{};
  int payDates = 0;
  forEach("SELECT * FROM KT7TEmpAmassType WHERE TEATBalanceFlag=0 AND TEATTEmpCode='" + code_ +
              "' AND TEATPaymentDate>=" + dateText(Date::fromYmd(on_.year(), 1, 1)) +
              " AND TEATPaymentDate<=" + dateText(on_),
          [&](ado::Recordset& row) {
            ++payDates;
            for (std::size_t i = 0; i < sums.size(); ++i) {
              const Value amount = row.get(kBalances[i].column);
              if (!amount.isNull()) sums[i] += amount.toCurrency();
            }
          });
  Json json{{"Year", on_.year()}, {"PayDates", payDates}};
  for (std::size_t i = 0; i < sums.size(); ++i) json[kBalances[i].name] = toJson(sums[i]);
  return json;
}

Json SheetMaker::make() {
  Json sheet{{"On", toJson(on_)}, {"Profile", profile()}};
  sheet["Rates"] = rates();
  sheet["Hours"] = hours();
  sheet["Service"] = service();
  sheet["Fund"] = fund();
  sheet["History"] = history();
  sheet["Leave"] = leave();
  sheet["Balances"] = balances();
  return sheet;
}

}  // namespace

Json employeeSheet(Platform& platform, DataObj& dataObj, const std::string& code, Date on) {
  return SheetMaker(platform, dataObj, code, on.datePart()).make();
}

}  // namespace kt7::cli
