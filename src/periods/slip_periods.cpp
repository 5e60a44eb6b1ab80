#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "periods/slip_calendar.h"
#include "support/opened.h"
#include "support/own_transaction.h"
#include "support/sql_text.h"

namespace kt7 {

namespace {

constexpr int16_t kFrozen = 0;
constexpr int16_t kGenerated = 1;

struct Collaborators {
  Platform& platform;
  DataTool& dataTool;
  UtilityObject& utility;
  std::string databaseType;
};

std::string numbered(const char* stem, int16_t period) { return stem + std::to_string(period); }

int16_t wholeNumber(ado::Recordset& type, const std::string& column, UtilityObject& utility) {
  return utility.TextToInteger(type.get(column).joinedText(), true);
}

periods::Span configuredSpan(ado::Recordset& type, const char* firstDay, const char* lastDay,
                             int16_t period, Date today, UtilityObject& utility) {
  const int16_t first = type.get(numbered(firstDay, period)).toInt16();
  const int16_t last = type.get(numbered(lastDay, period)).toInt16();
  const auto month = static_cast<int16_t>(today.month());
  return periods::spanInMonth(first, last, {utility.CurrentYear(), month}, utility);
}

void writeSpans(ado::Recordset& slip, ado::Recordset& type, int16_t period, Date payDate,
                Date today, UtilityObject& utility) {
  const periods::Span salary =
      configuredSpan(type, "TEMTStartPeriod", "TEMTEndPeriod", period, today, utility);
  slip.set("TSAPStartDate", salary.start);
  slip.set("TSAPEndDate", salary.end);
  const periods::Span overtime = periods::overtimeSpan(
      configuredSpan(type, "TEMTOTStartPeriod", "TEMTOTEndPeriod", period, today, utility), payDate,
      utility);
  slip.set("TSAPOTStartDate", overtime.start);
  slip.set("TSAPOTEndDate", overtime.end);
  slip.set("TSAPMiscStartDate", payDate);
  slip.set("TSAPMiscEndDate", payDate);
}

bool isFrozen(ado::Recordset& slip) {
  const Value status = slip.get("TSaPStatus");
  return !status.isNull() && status.toDouble() == kFrozen;
}

void storePeriod(ado::Recordset& type, int16_t period, Date today, ado::Connection& connection,
                 const Collaborators& with) {
  const int16_t payDay = wholeNumber(type, numbered("TEMTPaymentPeriod", period), with.utility);
  const int16_t customDay = wholeNumber(type, numbered("TEMTPaymentCustom", period), with.utility);
  const periods::PayDates dates = periods::payDatesInMonth(today, payDay, customDay);

  const Value typeCode = type.get("TEMTCode");
  const std::string sql = with.dataTool.PrepareSql(
      "SELECT * FROM KT7TEmpSlipPeriod WHERE TSaPTEmTCode='" + typeCode.joinedText() +
          "' AND TSaPDate=" + dateLiteral(with.utility.SqlDateText(dates.payDate)),
      with.databaseType);
  OpenRecordset slip(with.platform, sql, connection, ado::kOptimistic);
  if (slip->Eof()) {
    slip->AddNew();
  } else if (isFrozen(*slip)) {
    slip.close();
    return;
  }
  slip->set("TSaPTEmTCode", typeCode);
  slip->set("TSAPDate", dates.payDate);
  slip->set("TSAPCustomDate", dates.customDate);
  slip->set("TSAPPeriodNo", period);
  slip->set("TSAPYearPeriodNo",
            toInt32((today.month() - 1) * type.get("TEmTTotalPeriod").toDouble() + period));
  writeSpans(*slip, type, period, dates.payDate, today, with.utility);
  slip->set("TSAPStatus", kGenerated);
  slip->set("TSAPFlag3", with.platform.now());
  slip->Update();
  slip.close();
}

}  // namespace

void HRObject::UpdatePeriodStatus(DataObj& dataObj, bool AutoPeriodOnly) {
  inOwnTransaction(platform_, dataObj, [&](ado::Connection& connection) {
    const Collaborators with{platform_, dataTool(), utility(), dataObj.DatabaseType()};
    const Date today = platform_.now().datePart();
    const char* inUse =
        AutoPeriodOnly
            ? "SELECT * FROM Kt7TEmployeeType WHERE TEMTAutoPeriod=1 and TEMTFlag1=1 ORDER BY "
              "TEmTCode"
            : "SELECT * FROM Kt7TEmployeeType WHERE TEMTFlag1=1 ORDER BY TEmTCode";
    OpenRecordset types(platform_, inUse, connection);
    for (; !types->Eof(); types->MoveNext()) {
      const int16_t total = wholeNumber(*types, "TEMTTotalPeriod", utility());
      for (int16_t period = 1; period <= total; period = add16(period, 1)) {
        storePeriod(*types, period, today, connection, with);
      }
    }
    types.close();
  });
}

}  // namespace kt7
