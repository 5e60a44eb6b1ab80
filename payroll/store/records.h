#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <kt7/payroll/day_span.h>
#include "support/opened.h"

namespace kt7::payroll {

/// Questions and statements on the data object's connection, and the reading of their rows.
class Records {
 public:
  Records(Platform& platform, DataObj& dataObj);

  OpenRecordset open(const std::string& sql, int lockType = ado::kReadOnly);
  void execute(const std::string& sql);
  /// The rows, which nobody else changes until the transaction ends. On an engine that is not known
  /// to lock rows that are read they are only read.
  OpenRecordset openLocked(const std::string& sql);

  /// A text between quotes, whatever stands in it. A backslash is a character like any other: the
  /// drivers see to that on every engine.
  std::string quoted(std::string_view text) const;
  /// "('E1','E2')"
  std::string listOf(const std::vector<std::string>& texts) const;
  std::string dateText(Date day) const;
  /// "COLUMN>=first AND COLUMN<=last"
  std::string within(const std::string& column, const DaySpan& span) const;
  Date now() { return platform_.now(); }
  /// Empty for a date that counts as not entered.
  std::optional<Date> enteredDate(const Value& value) const;

 private:
  Platform& platform_;
  DataObj& dataObj_;
  std::unique_ptr<DataTool> dataTool_;
  std::unique_ptr<UtilityObject> utility_;
};

/// The slips or balances of pay runs: "TEPSCheckGroup=1" for the prefix "TEPS" of a table's
/// columns.
std::string ofRun(const std::string& prefix);

// A null reads as "", 0 or no; a null of a number where none may be missing as empty.
std::string textIn(ado::Recordset& row, std::string_view column);
Currency moneyIn(ado::Recordset& row, std::string_view column);
double numberIn(ado::Recordset& row, std::string_view column);
int wholeIn(ado::Recordset& row, std::string_view column);
std::optional<std::int16_t> smallIn(ado::Recordset& row, std::string_view column);

}  // namespace kt7::payroll
