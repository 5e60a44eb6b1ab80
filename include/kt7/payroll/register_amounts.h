#pragma once

#include <kt7/export.h>
#include <kt7/payroll/slip.h>

namespace kt7::payroll {

/// The amounts of the pay register, of one slip or of many.
struct KT7_API RegisterAmounts {
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

KT7_API RegisterAmounts registerAmounts(const Slip& slip);

}  // namespace kt7::payroll
