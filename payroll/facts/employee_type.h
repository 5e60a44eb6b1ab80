#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <kt7/employee_interface.h>

namespace kt7::payroll {

/// By what an employee type's salary is reckoned.
enum class PayBasis { Monthly, Daily, Hourly };

/// A period's days of the month: when it is paid, and the spans of salary and overtime.
struct PeriodDays {
  std::int16_t payDay = 0;
  std::optional<std::int16_t> salaryFrom;
  std::optional<std::int16_t> salaryTo;
  std::optional<std::int16_t> overtimeFrom;
  std::optional<std::int16_t> overtimeTo;
};

/// An employee type as it stands in the database; a null column is empty.
struct TypeRow {
  std::string code;
  std::optional<std::int16_t> hoursPerDay;
  std::optional<std::int16_t> daysPerWeek;
  std::optional<std::int16_t> daysPerMonth;
  std::optional<std::int16_t> totalPeriods;
  std::int16_t salaryType = 0;
  std::int16_t calculateType = 0;
  std::vector<PeriodDays> periods;
};

/// An employee type that the pay run can pay by.
struct EmployeeType {
  std::string code;
  PayBasis basis = PayBasis::Monthly;
  std::int16_t salaryType = 0;
  std::int16_t calculateType = 0;
  std::int16_t hoursPerDay = 0;
  std::int16_t daysPerMonth = 0;
  std::vector<PeriodDays> periods;
};

/// Most pay periods of a month that a type can have columns for.
inline constexpr std::int16_t kMostPeriods = 10;

/// What keeps a type from being paid by, one sentence each; empty for a sound row.
std::vector<std::string> problemsOf(const TypeRow& row);

/// The type of a row without problems.
EmployeeType typeOf(const TypeRow& row);

/// Whether a profile holds the settings of that type. Loading a type traps its errors, so that a
/// profile may be left with those of another or with none.
bool holdsType(const _EmployeeObject& profile, const EmployeeType& type);

}  // namespace kt7::payroll
