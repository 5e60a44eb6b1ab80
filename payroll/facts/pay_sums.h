#pragma once

#include <kt7/payroll/slip.h>

namespace kt7::payroll {

/// Totals of slips: the figures that tax, social security and fund are reckoned from.
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

}  // namespace kt7::payroll
