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

/// What a run works with, on its own connection.
struct Run {
  Platform& platform;
  Collaborators& with;
  DataObj& dataObj;
  ado::Connection& connection;
  Date today;
};

std::string numbered(const char* stem, int16_t period) { return stem + std::to_string(period); }

int16_t wholeNumber(ado::Recordset& type, const std::string& column, Collaborators& with) {
  const std::string text = type.get(column).joinedText();
  return with.utility().TextToInteger(text, true);
}

periods::Span configuredSpan(ado::Recordset& type, const char* firstDay, const char* lastDay,
                             int16_t period, const Run& run) {
  const int16_t first = type.get(numbered(firstDay, period)).toInt16();
  const int16_t last = type.get(numbered(lastDay, period)).toInt16();
  const auto month = static_cast<int16_t>(run.today.month());
  UtilityObject& utility = run.with.utility();
  return periods::spanInMonth(first, last, {utility.CurrentYear(), month}, utility);
}

void writeSpans(ado::Recordset& slip, ado::Recordset& type, int16_t period, Date payDate,
                const Run& run) {
  const periods::Span salary =
      configuredSpan(type, "TEMTStartPeriod", "TEMTEndPeriod", period, run);
  slip.set("TSAPStartDate", salary.start);
  slip.set("TSAPEndDate", salary.end);
  const periods::Span overtime = periods::overtimeSpan(
      configuredSpan(type, "TEMTOTStartPeriod", "TEMTOTEndPeriod", period, run), payDate,
      run.with.utility());
  slip.set("TSAPOTStartDate", overtime.start);
  slip.set("TSAPOTEndDate", overtime.end);
  slip.set("TSAPMiscStartDate", payDate);
  slip.set("TSAPMiscEndDate", payDate);
}

bool isFrozen(ado::Recordset& slip) {
  const Value status = slip.get("TSaPStatus");
  return !status.isNull() && status.toDouble() == kFrozen;
}

/// Overflow where the number leaves the 16 bits that it is reckoned in.
int16_t numberInYear(ado::Recordset& type, int16_t period, Date today) {
  const auto monthsBefore = static_cast<int16_t>(today.month() - 1);
  return add16(multiply16(monthsBefore, type.get("TEmTTotalPeriod").toInt16()), period);
}

void storePeriod(ado::Recordset& type, int16_t period, const Run& run) {
  const int16_t payDay = wholeNumber(type, numbered("TEMTPaymentPeriod", period), run.with);
  const int16_t customDay = wholeNumber(type, numbered("TEMTPaymentCustom", period), run.with);
  const periods::PayDates dates = periods::payDatesInMonth(run.today, payDay, customDay);

  const Value typeCode = type.get("TEMTCode");
  const std::string date = dateLiteral(run.with.utility().SqlDateText(dates.payDate));
  const std::string sql =
      run.with.dataTool().PrepareSql("SELECT * FROM KT7TEmpSlipPeriod WHERE TSaPTEmTCode='" +
                                         typeCode.joinedText() + "' AND TSaPDate=" + date,
                                     run.dataObj.DatabaseType());
  OpenRecordset slip(run.platform, sql, run.connection, ado::kOptimistic);
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
  slip->set("TSAPYearPeriodNo", numberInYear(type, period, run.today));
  writeSpans(*slip, type, period, dates.payDate, run);
  slip->set("TSAPStatus", kGenerated);
  slip->set("TSAPFlag3", run.platform.now());
  slip->Update();
  slip.close();
}

}  // namespace

void HRObject::UpdatePeriodStatus(DataObj& dataObj, bool AutoPeriodOnly) {
  inOwnTransaction(platform_, dataObj, [&](ado::Connection& connection) {
    const Run run{.platform = platform_,
                  .with = collaborators_,
                  .dataObj = dataObj,
                  .connection = connection,
                  .today = platform_.now().datePart()};
    const char* inUse =
        AutoPeriodOnly
            ? "SELECT * FROM Kt7TEmployeeType WHERE TEMTAutoPeriod=1 and TEMTFlag1=1 ORDER BY "
              "TEmTCode"
            : "SELECT * FROM Kt7TEmployeeType WHERE TEMTFlag1=1 ORDER BY TEmTCode";
    OpenRecordset types(platform_, inUse, connection);
    for (; !types->Eof(); types->MoveNext()) {
      const int16_t total = wholeNumber(*types, "TEMTTotalPeriod", collaborators_);
      for (int16_t period = 1; period <= total; period = add16(period, 1)) {
        storePeriod(*types, period, run);
      }
    }
    types.close();
  });
}

}  // namespace kt7
