#include <exception>

#include <kt7/employee_object.h>
#include "base/arithmetic.h"
#include "profile/salary_rules.h"
#include "support/opened.h"

namespace kt7 {

namespace {

constexpr int16_t kRateDigits = 2;

}  // namespace

void EmployeeObject::SetTypeCode(const std::string& vData, DataObj& dataObj) {
  try {
    loadType(vData, dataObj);
  } catch (const std::exception&) {
    // Intended 16: a type that cannot be loaded ends the call; what was set before stays set.
  }
}

void EmployeeObject::loadType(const std::string& typeCode, DataObj& dataObj) {
  OwnConnection connection(platform_, dataObj);
  const std::string sql = dataTool().PrepareSql(
      "SELECT * FROM KT7TEmployeeType WHERE TEmTCode='" + typeCode + "'", dataObj.DatabaseType());
  OpenRecordset type(platform_, sql, *connection);
  if (!type->Eof()) {
    typeCode_ = typeCode;
    readTypeRow(*type);
    deriveHourRates();
    deriveHourFullRate();
  }
  type.close();
  connection.close();
}

void EmployeeObject::readTypeRow(ado::Recordset& type) {
  const auto number = [&](const char* column) {
    return utility().TextToNumber(type.get(column).joinedText());
  };
  hourPerDay_ = type.get("TEmTHourPerDay").toInt16();
  dayPerWeek_ = type.get("TEmTDayPerWeek").toInt16();
  dayPerMonth_ = type.get("TEmTDayPerMonth").toInt16();
  totalPeriod_ = type.get("TEmTTotalPeriod").toInt16();
  self().DayPerPeriod(toInt16(number("TEmTDayPerPeriod")));
  self().DayPerYear(toInt16(number("TEmTDayPerYear")));
  self().HourPerPeriod(number("TEmTHourPerPeriod"));
  self().HourPerWeek(number("TEmTHourPerWeek"));
  self().HourPerMonth(number("TEmTHourPerMonth"));
  self().HourPerYear(number("TEmTHourPerYear"));
  self().SalaryType(toInt16(number("TEmTSalaryType")));
  calculateType_ = toInt16(number("TEmTCalculateType"));
  // Intended 17: the stored hours a week and a month are not trusted; a day's hours decide.
  self().HourPerWeek(hoursOf(dayPerWeek_));
  self().HourPerMonth(hoursOf(dayPerMonth_));
}

void EmployeeObject::deriveHourRates() {
  const auto derive = [&](double quantity, double hours, double share) {
    calculateQuantity_ = quantity;
    hourRate1_ = rounded(divide(divide(salary1_, hours), share), kRateDigits);
    hourRate2_ = rounded(divide(divide(salary2_, hours), share), kRateDigits);
  };
  switch (calculateType_) {
    case profile::kMonthly:
      derive(1, hourPerMonth_, 1);
      break;
    case profile::kWeekly:
      derive(4, hourPerWeek_, 1);
      break;
    case profile::kDaily:
      derive(dayPerMonth_, hourPerDay_, 1);
      break;
    case profile::kHourly:
      calculateQuantity_ = rounded(multiply16(dayPerMonth_, hourPerDay_), kRateDigits);
      hourRate1_ = salary1_;
      hourRate2_ = salary2_;
      break;
    case profile::kHalfMonthly:
      derive(2, hourPerMonth_, 2);
      break;
    case profile::kTenDays:
      derive(3, hourPerMonth_, 3);
      break;
    case profile::kByQuantity:
      calculateQuantity_ = 1;
      hourRate1_ = 0;
      hourRate2_ = 0;
      break;
    default:
      break;
  }
}

}  // namespace kt7
