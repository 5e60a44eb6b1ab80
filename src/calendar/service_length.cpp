#include "calendar/service_length.h"

#include <kt7/error.h>
#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "base/text.h"

namespace kt7 {

namespace calendar {

std::int16_t monthsBetween(Date start, Date end) {
  std::int16_t months = 0;
  Date cursor = start.plusMonths(1);
  const Date limit = end.plusDays(1);
  while (limit > cursor) {
    months = add16(months, 1);
    cursor = cursor.plusMonths(1);
  }
  return months;
}

}  // namespace calendar

namespace {

constexpr int16_t kMonthsPerYear = 12;
constexpr const char* kNoService = "0-0-0";

int16_t serviceNumber(const std::string& service, std::size_t piece, Collaborators& with) {
  const std::vector<std::string> pieces = split(service, '-');
  if (piece >= pieces.size()) raiseSubscript();
  return with.utility().TextToInteger(pieces[piece], true);
}

}  // namespace

std::string HRObject::DateDifText(Date StartDate, Date ToDate) {
  const int16_t months = calendar::monthsBetween(StartDate, ToDate);
  // Intended 23: the day field is counted from the anchor to itself and always 0.
  return std::to_string(months / kMonthsPerYear) + "-" + std::to_string(months % kMonthsPerYear) +
         "-0";
}

std::string HRObject::CountWorkDayString(DataObj& dataObj, const std::string& EmployeeCode,
                                         Date iDate) {
  const std::string sql =
      dataTool().PrepareSql("SELECT TEmpSignDate from KT7TEmployee WHERE TEmpCode='" +
                                EmployeeCode + "' ORDER BY TEmpCode",
                            dataObj.DatabaseType());
  dataObj.OpenConnection();
  ado::Connection& connection = dataObj.Connection();
  const std::unique_ptr<ado::Recordset> employee = platform_.createRecordset();
  employee->Open(sql, connection, ado::kStatic, ado::kReadOnly, ado::kUnspecified);
  std::string service = kNoService;
  if (!employee->Eof()) {
    const Value stored = employee->get("TEmpSignDate");
    if (!stored.isNull()) {
      const Date signDate = stored.toDate();
      if (!utility().IsBlankDate(signDate)) service = self().DateDifText(signDate, iDate);
    }
  }
  dataObj.CloseConnection();
  return service;
}

int16_t HRObject::CountWorkCompletedMonth(DataObj& dataObj, const std::string& EmployeeCode,
                                          Date iDate) {
  const std::string service = self().CountWorkDayString(dataObj, EmployeeCode, iDate);
  const int16_t years = serviceNumber(service, 0, collaborators_);
  const int16_t months = serviceNumber(service, 1, collaborators_);
  return add16(multiply16(years, kMonthsPerYear), months);
}

int16_t HRObject::CountWorkCompletedYear(DataObj& dataObj, const std::string& EmployeeCode,
                                         Date iDate) {
  const std::string service = self().CountWorkDayString(dataObj, EmployeeCode, iDate);
  return serviceNumber(service, 0, collaborators_);
}

}  // namespace kt7
