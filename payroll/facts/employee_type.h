#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <kt7/employee_interface.h>

namespace kt7::payroll {

/// The unit that a type's salary pays for.
enum class PayBasis { Monthly, Daily, Hourly };

/// The days of the month of one pay period: pay day, first and last day of salary and overtime.
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

/// Why the pay run cannot pay by this type, one sentence each; empty if it can.
std::vector<std::string> problemsOf(const TypeRow& row);

/// The type of a row without problems.
EmployeeType typeOf(const TypeRow& row);

/// Whether a profile holds the settings of that type. SetTypeCode traps its errors and may leave
/// some of the former settings.
bool holdsType(const _EmployeeObject& profile, const EmployeeType& type);

}  // namespace kt7::payroll
