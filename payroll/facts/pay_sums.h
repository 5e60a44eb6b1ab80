#pragma once

#include <kt7/payroll/slip.h>

namespace kt7::payroll {

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

}  // namespace kt7::payroll
