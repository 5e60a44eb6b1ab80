#include "payroll/rules/input.h"

#include <algorithm>
#include <optional>
#include <set>
#include <stdexcept>
#include <tuple>

#include <kt7/error.h>
#include <kt7/payroll/slip.h>
#include "base/number_text.h"
#include "base/text.h"
#include "payroll/facts/satang.h"
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

namespace {

/// A row cannot be used; the text says why.
class BadRow : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

bool before(const InputEntry& a, const InputEntry& b) {
  return std::tuple(std::string_view(a.employee), a.payDate.dayNumber()) <
         std::tuple(std::string_view(b.employee), b.payDate.dayNumber());
}

std::optional<double> numberIn(const std::string& text, const char* column) {
  const std::string_view trimmed = trimmedBlanks(text);
  if (trimmed.empty()) return std::nullopt;
  double number = 0;
  if (!readPlainNumber(trimmed, number, std::chars_format::fixed)) {
    throw BadRow(std::string(column) + " '" + text + "' is not a number");
  }
  return number;
}

std::optional<Currency> moneyIn(const std::string& text) {
  if (!numberIn(text, "the amount")) return std::nullopt;
  try {
    return toSatang(Currency::fromText(trimmedBlanks(text)));
  } catch (const Error&) {
    throw BadRow("the amount '" + text + "' is not an amount of money");
  }
}

class RowReader {
 public:
  RowReader(const EmployeesByCode& employees, const std::vector<SlipPeriod>& periods)
      : employees_(employees), periods_(periods) {
    for (const SlipPeriod& period : periods) types_.insert(period.type);
  }

  /// None if the run does not pay the employee's type.
  std::optional<InputEntry> read(const InputRow& row) {
    if (!row.problem.empty()) throw BadRow(row.problem);
    const auto employee = employees_.find(row.employee);
    if (employee == employees_.end()) throw BadRow("no employee '" + row.employee + "'");
    InputEntry entry;
    entry.employee = row.employee;
    readKind(row, entry);
    if (types_.count(employee->second.type) == 0) return std::nullopt;
    readPayDate(row, employee->second, entry);
    refuseSecondQuantity(entry);
    return entry;
  }

 private:
  static void readKind(const InputRow& row, InputEntry& entry) {
    entry.kind = upperCase(trimmedBlanks(row.kind));
    if (entry.kind.empty()) throw BadRow("no kind");
    const std::optional<double> quantity = numberIn(row.quantity, "the quantity");
    const std::optional<Currency> amount = moneyIn(row.amount);
    entry.quantity = quantity.value_or(0);
    entry.amount = amount.value_or(Currency());
    switch (itemKind(entry.kind).use) {
      case InputUse::Computed:
        throw BadRow(entry.kind + " is reckoned by the pay run and cannot be given");
      case InputUse::Amount:
        if (!amount) throw BadRow(entry.kind + " needs an amount");
        break;
      default:
        if (!quantity) throw BadRow(entry.kind + " needs a quantity");
        if (*quantity < 0) throw BadRow(entry.kind + " cannot be negative");
    }
  }

  void readPayDate(const InputRow& row, const Employee& employee, InputEntry& entry) const {
    if (!Date::tryFromIsoText(trimmedBlanks(row.payDate), entry.payDate)) {
      throw BadRow("the pay date '" + row.payDate + "' is not a date (write 2026-01-31)");
    }
    const auto period = std::find_if(periods_.begin(), periods_.end(), [&](const SlipPeriod& p) {
      return p.type == employee.type && p.payDate == entry.payDate;
    });
    if (period == periods_.end()) {
      throw BadRow("type " + employee.type + " of " + employee.code + " has no pay date " +
                   entry.payDate.isoDateText() + " in the month");
    }
    if (!isDue(employee, *period)) {
      throw BadRow(employee.code + " gets no slip on " + entry.payDate.isoDateText());
    }
  }

  void refuseSecondQuantity(const InputEntry& entry) {
    const InputUse use = itemKind(entry.kind).use;
    if (use != InputUse::Days && use != InputUse::Hours) return;
    if (!counted_.insert({entry.employee, entry.payDate.dayNumber()}).second) {
      throw BadRow("days or hours of " + entry.employee + " on " + entry.payDate.isoDateText() +
                   " are given twice");
    }
  }

  const EmployeesByCode& employees_;
  const std::vector<SlipPeriod>& periods_;
  std::set<std::string> types_;
  std::set<std::pair<std::string, std::int32_t>> counted_;
};

}  // namespace

MonthInput::MonthInput(std::vector<InputEntry> entries) : entries_(std::move(entries)) {
  std::stable_sort(entries_.begin(), entries_.end(), before);
}

std::span<const InputEntry> MonthInput::of(const std::string& employee, Date payDate) const {
  InputEntry key;
  key.employee = employee;
  key.payDate = payDate;
  const auto [first, last] = std::equal_range(entries_.begin(), entries_.end(), key, before);
  return {first, last};
}

CheckedInput checkInput(const std::vector<InputRow>& rows, const EmployeesByCode& employees,
                        const std::vector<SlipPeriod>& periods) {
  CheckedInput result;
  std::vector<InputEntry> entries;
  RowReader reader(employees, periods);
  for (const InputRow& row : rows) {
    try {
      if (auto entry = reader.read(row)) {
        entries.push_back(std::move(*entry));
      } else {
        ++result.otherTypes;
      }
    } catch (const BadRow& problem) {
      result.problems.push_back("input line " + std::to_string(row.line) + ": " + problem.what());
    }
  }
  result.input = MonthInput(std::move(entries));
  return result;
}

}  // namespace kt7::payroll
