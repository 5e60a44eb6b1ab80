#include "payroll/facts/employee_type.h"

#include <algorithm>
#include <array>

namespace kt7::payroll {

namespace {

struct BasisRow {
  std::int16_t salaryType;
  std::int16_t calculateType;
  PayBasis basis;
};

constexpr std::array<BasisRow, 3> kBases{
    {{0, 0, PayBasis::Monthly}, {2, 2, PayBasis::Daily}, {3, 3, PayBasis::Hourly}}};

constexpr std::int16_t kHoursOfDay = 24;
constexpr std::int16_t kDaysOfWeek = 7;
constexpr std::int16_t kDaysOfMonth = 31;

const BasisRow* basisOf(const TypeRow& row) {
  const auto* found = std::find_if(kBases.begin(), kBases.end(), [&](const BasisRow& basis) {
    return basis.salaryType == row.salaryType && basis.calculateType == row.calculateType;
  });
  return found == kBases.end() ? nullptr : found;
}

/// Collects what is wrong with one type.
class TypeCheck {
 public:
  explicit TypeCheck(const std::string& code) : code_(code) {}

  void within(const std::string& what, std::optional<std::int16_t> value, std::int16_t most) {
    if (value && *value >= 1 && *value <= most) return;
    problem(what + (value ? " is " + std::to_string(*value) : std::string(" is empty")) +
            ", it must be 1 to " + std::to_string(most));
  }
  void problem(const std::string& text) {
    problems_.push_back("employee type " + code_ + ": " + text);
  }
  std::vector<std::string> take() { return std::move(problems_); }

 private:
  std::string code_;
  std::vector<std::string> problems_;
};

void checkPeriod(TypeCheck& check, const PeriodDays& days, std::size_t number) {
  const std::string suffix = " of period " + std::to_string(number);
  check.within("the pay day" + suffix, days.payDay, kDaysOfMonth);
  check.within("the first salary day" + suffix, days.salaryFrom, kDaysOfMonth);
  check.within("the last salary day" + suffix, days.salaryTo, kDaysOfMonth);
  check.within("the first overtime day" + suffix, days.overtimeFrom, kDaysOfMonth);
  check.within("the last overtime day" + suffix, days.overtimeTo, kDaysOfMonth);
}

}  // namespace

std::vector<std::string> problemsOf(const TypeRow& row) {
  TypeCheck check(row.code);
  check.within("hours a day", row.hoursPerDay, kHoursOfDay);
  check.within("days a week", row.daysPerWeek, kDaysOfWeek);
  check.within("days a month", row.daysPerMonth, kDaysOfMonth);
  check.within("the number of periods", row.totalPeriods, kMostPeriods);
  if (basisOf(row) == nullptr) {
    check.problem("salary type " + std::to_string(row.salaryType) + " with calculation type " +
                  std::to_string(row.calculateType) +
                  " cannot be paid by; both must be 0 (monthly), 2 (daily) or 3 (hourly)");
  }
  for (std::size_t i = 0; i < row.periods.size(); ++i) checkPeriod(check, row.periods[i], i + 1);
  return check.take();
}

EmployeeType typeOf(const TypeRow& row) {
  return {row.code,          basisOf(row)->basis,     row.salaryType,
          row.calculateType, row.hoursPerDay.value(), row.daysPerMonth.value(),
          row.periods};
}

bool holdsType(const _EmployeeObject& profile, const EmployeeType& type) {
  const double hoursPerMonth = type.daysPerMonth * type.hoursPerDay;
  return profile.TypeCode() == type.code && profile.SalaryType() == type.salaryType &&
         profile.CalculateType() == type.calculateType &&
         profile.HourPerDay() == type.hoursPerDay && profile.DayPerMonth() == type.daysPerMonth &&
         profile.HourPerMonth() == hoursPerMonth &&
         profile.TotalPeriod() == static_cast<int16_t>(type.periods.size());
}

}  // namespace kt7::payroll
