#include "payroll/store/records.h"

#include <kt7/contract/data_obj.h>
#include "base/text.h"
#include "payroll/facts/slip_number.h"
#include "support/engine_words.h"
#include "support/sql_text.h"

namespace kt7::payroll {

Records::Records(Platform& platform, DataObj& dataObj)
    : platform_(platform),
      dataObj_(dataObj),
      dataTool_(platform.createDataTool()),
      utility_(platform.createUtilityObject()) {}

OpenRecordset Records::open(const std::string& sql, int lockType) {
  return OpenRecordset(platform_, dataTool_->PrepareSql(sql, dataObj_.DatabaseType()),
                       dataObj_.Connection(), lockType);
}

void Records::execute(const std::string& sql) {
  dataObj_.ExecuteSql(dataTool_->PrepareSql(sql, dataObj_.DatabaseType()));
}

OpenRecordset Records::openLocked(const std::string& sql) {
  return open(sql + wordsOf(engineOf(dataObj_.DatabaseType())).lockingRows);
}

std::string Records::quoted(std::string_view text) const {
  return "'" + replaceAll(std::string(text), "'", "''") + "'";
}

std::string Records::listOf(const std::vector<std::string>& texts) const {
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "(" : ",") + quoted(text);
  return list + ")";
}

std::string Records::dateText(Date day) const { return dateLiteral(utility_->SqlDateText(day)); }

std::string Records::within(const std::string& column, const DaySpan& span) const {
  return column + ">=" + dateText(span.first) + " AND " + column + "<=" + dateText(span.last);
}

std::optional<Date> Records::enteredDate(const Value& value) const {
  if (value.isNull()) return std::nullopt;
  const Date date = value.toDate().datePart();
  if (utility_->IsBlankDate(date)) return std::nullopt;
  return date;
}

std::string ofRun(const std::string& prefix) {
  return prefix + "CheckGroup=" + std::to_string(kCheckGroup);
}

std::string textIn(ado::Recordset& row, std::string_view column) {
  return row.get(column).joinedText();
}

Currency moneyIn(ado::Recordset& row, std::string_view column) {
  const Value value = row.get(column);
  return value.isNull() ? Currency() : value.toCurrency();
}

double numberIn(ado::Recordset& row, std::string_view column) {
  const Value value = row.get(column);
  return value.isNull() ? 0 : value.toDouble();
}

int wholeIn(ado::Recordset& row, std::string_view column) {
  const Value value = row.get(column);
  return value.isNull() ? 0 : value.toInt32();
}

std::optional<std::int16_t> smallIn(ado::Recordset& row, std::string_view column) {
  const Value value = row.get(column);
  if (value.isNull()) return std::nullopt;
  return value.toInt16();
}

}  // namespace kt7::payroll
