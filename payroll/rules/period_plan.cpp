#include "payroll/rules/period_plan.h"

namespace kt7::payroll {

namespace {

DaySpan salarySpan(const PeriodDays& days, const Month& month) {
  const int from = days.salaryFrom.value();
  const int to = days.salaryTo.value();
  const Month start = from < to ? month : month.plus(-1);
  return {start.dayAtMost(from), month.dayAtMost(to)};
}

/// The month's periods as they will be: a frozen one keeps the span of its row.
std::vector<SlipPeriod> periodsToBe(const EmployeeType& type, const Month& month,
                                    const std::vector<SlipPeriod>& existing) {
  std::vector<SlipPeriod> periods = plannedPeriods(type, month);
  for (SlipPeriod& period : periods) {
    for (const SlipPeriod& row : existing) {
      if (row.frozen && row.payDate == period.payDate) period = row;
    }
  }
  return periods;
}

std::string overlapText(const SlipPeriod& a, const SlipPeriod& b) {
  return "employee type " + a.type + ": the salary days " + a.salary.text() + " paid on " +
         a.payDate.isoDateText() + " overlap " + b.salary.text() + " paid on " +
         b.payDate.isoDateText() + (b.frozen ? " (frozen)" : "");
}

std::string sameDateText(const SlipPeriod& a, const SlipPeriod& b) {
  return "employee type " + a.type + ": periods " + std::to_string(a.number) + " and " +
         std::to_string(b.number) + " are both paid on " + a.payDate.isoDateText();
}

}  // namespace

std::vector<SlipPeriod> plannedPeriods(const EmployeeType& type, const Month& month) {
  std::vector<SlipPeriod> periods;
  for (const PeriodDays& days : type.periods) {
    SlipPeriod period;
    period.type = type.code;
    period.number = static_cast<int>(periods.size()) + 1;
    period.payDate = month.dayAtMost(days.payDay);
    period.salary = salarySpan(days, month);
    periods.push_back(period);
  }
  return periods;
}

std::vector<std::string> clashesOf(const EmployeeType& type, const Month& month,
                                   const std::vector<SlipPeriod>& existing) {
  const std::vector<SlipPeriod> periods = periodsToBe(type, month, existing);
  std::vector<SlipPeriod> others = plannedPeriods(type, month.plus(-1));
  const std::vector<SlipPeriod> following = plannedPeriods(type, month.plus(1));
  others.insert(others.end(), following.begin(), following.end());
  for (const SlipPeriod& row : existing) {
    const bool ofMonth = month.days().contains(row.payDate);
    if (ofMonth ? row.frozen : row.hasSlips) others.push_back(row);
  }

  std::vector<std::string> clashes;
  const auto found = [&](const std::string& clash) {
    if (std::find(clashes.begin(), clashes.end(), clash) == clashes.end()) clashes.push_back(clash);
  };
  for (std::size_t i = 0; i < periods.size(); ++i) {
    for (std::size_t j = i + 1; j < periods.size(); ++j) {
      if (periods[i].payDate == periods[j].payDate) {
        found(sameDateText(periods[i], periods[j]));
      } else if (periods[i].salary.overlaps(periods[j].salary)) {
        found(overlapText(periods[i], periods[j]));
      }
    }
    for (const SlipPeriod& other : others) {
      if (other.payDate == periods[i].payDate) continue;
      if (periods[i].salary.overlaps(other.salary)) found(overlapText(periods[i], other));
    }
  }
  return clashes;
}

}  // namespace kt7::payroll
