#pragma once

#include <string>
#include <vector>

#include "base/currency.h"
#include "payroll/run/day_span.h"
#include "payroll/run/item_kinds.h"

namespace kt7::payroll {

/// One line of a slip. Amounts are never signed by what they count as: a deduction of 500 is 500.
struct SlipItem {
  std::string kind;
  std::string name;
  double quantity = 0;  // days or hours, 0 where the kind knows none
  Counts counts = Counts::Income;
  Currency amount;
};

/// The attendance verdict of a period; none where the type knows no allowance.
enum class Verdict { None, Inactive, Active };

/// The pay of one employee on one pay date.
struct Slip {
  std::string number;
  std::string employee;
  std::string fullName;
  std::string type;
  Date payDate;
  int periodNumber = 0;
  DaySpan span;
  double payDays = 0;
  Verdict attendance = Verdict::None;
  std::vector<SlipItem> items;

  void add(std::string_view kind, Counts counts, Currency amount, double quantity = 0);
};

/// What slips add up to, as far as tax, social security and fund ask for it.
struct PaySums {
  Currency income;
  Currency bonus;
  Currency salary;
  Currency socialSecurity;
  Currency fund;
  Currency fundEmployer;
  Currency socialSecurityEmployer;
  Currency tax;

  PaySums& operator+=(const PaySums& other);
};

PaySums sumsOf(const Slip& slip);

/// The amounts of the pay register, of one slip or of many.
struct RegisterAmounts {
  Currency salary;
  Currency overtime;
  Currency otherIncome;
  Currency gross;
  Currency socialSecurity;
  Currency fundEmployee;
  Currency fundEmployer;
  Currency tax;
  Currency otherDeductions;
  Currency net;

  RegisterAmounts& operator+=(const RegisterAmounts& other);
};

RegisterAmounts registerAmounts(const Slip& slip);

/// The slips of the run form a group of their own among an employee's slips and balances.
inline constexpr std::int32_t kCheckGroup = 1;

inline constexpr int kHighestSequence = 9999999;

/// The slip number of a pay date: "20260131-0000001". It does not name the employee, so that it
/// outlives a change of the employee's code. "" beyond the highest sequence.
std::string slipNumber(Date payDate, int sequence);
/// The sequence of such a number, 0 for a number of another form.
int slipSequence(const std::string& number, Date payDate);

/// A whole number of satang, half away from zero.
Currency toSatang(Currency amount);

}  // namespace kt7::payroll
