#include "payroll/facts/employee.h"

namespace kt7::payroll {

DaySpan employedDays(const Employee& employee, const DaySpan& span) {
  return common(span,
                {employee.signDate.value_or(span.first), employee.resignDate.value_or(span.last)});
}

bool isDue(const Employee& employee, const SlipPeriod& period) {
  return employee.type == period.type && !employee.skipSlip &&
         !employedDays(employee, period.salary).empty();
}

}  // namespace kt7::payroll
