#include <kt7/employee_object.h>
#include "base/arithmetic.h"
#include "profile/salary_rules.h"

namespace kt7 {

void EmployeeObject::SETSALARY(double iSalary1, double iSalary2, double QuantityCalc) {
  derivePay(iSalary1, iSalary2, QuantityCalc);
  deriveHourFullRate();
  if (iSalary1 == 0) {
    salFactor_ = 0;
  } else if (iSalary2 == 0) {
    salFactor_ = 100;
  } else {
    // Intended 15: the first salary is added to the ratio.
    salFactor_ = toSingle(roundedSalary(divide(iSalary2, iSalary1)) + iSalary1);
  }
  condition_ = 0;
}

// Each pair is assigned first salary before second, so that a failure leaves the earlier
// assignments standing.
void EmployeeObject::derivePay(double salary1, double salary2, double quantity) {
  if (salaryType_ < profile::kMonthly || salaryType_ > profile::kByQuantity) return;
  salary1_ = salary1;
  salary2_ = salary2;

  const auto hourRates = [&](double hours, double share) {
    hourRate1_ = roundedSalary(divide(divide(salary1, hours), share));
    hourRate2_ = roundedSalary(divide(divide(salary2, hours), share));
  };
  switch (salaryType_) {
    case profile::kMonthly:
      hourRates(hourPerMonth_, 1);
      break;
    case profile::kWeekly:
      hourRates(hourPerWeek_, 1);
      break;
    case profile::kDaily:
      hourRates(hourPerDay_, 1);
      break;
    case profile::kHalfMonthly:
      hourRates(hourPerMonth_, 2);
      break;
    case profile::kTenDays:
      hourRates(hourPerMonth_, 3);
      break;
    default:
      hourRate1_ = salary1;
      hourRate2_ = salary2;
  }

  switch (salaryType_) {
    case profile::kMonthly:
      if (totalPeriod_ == 0) totalPeriod_ = 1;
      calculateSalary1_ = roundedSalary(salary1 / totalPeriod_);
      calculateSalary2_ = roundedSalary(salary2 / totalPeriod_);
      break;
    case profile::kWeekly:
      calculateSalary1_ = salary1;
      calculateSalary2_ = salary2;
      break;
    default:
      calculateSalary1_ = roundedSalary(finite(salary1 * quantity));
      calculateSalary2_ = roundedSalary(finite(salary2 * quantity));
  }
}

}  // namespace kt7
