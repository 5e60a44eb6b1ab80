#pragma once

#include <span>
#include <stdexcept>

#include "payroll/facts/pay_sums.h"
#include "payroll/facts/slip_period.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/wages.h"
#include "payroll/slips/attendance.h"
#include "payroll/slips/work_calendar.h"

namespace kt7::payroll {

/// What the last slip of an employee's month needs for tax, social security and fund.
struct MonthClosing {
  PaySums yearBefore;   // the earlier months of the year
  PaySums restOfMonth;  // the month's other slips
  bool leaves = false;  // no later month will have a slip
};

/// A slip to make. `closing` is null if another slip of the month follows.
struct SlipOrder {
  const Employee& employee;
  const EmployeeType& type;
  const SlipPeriod& period;
  std::span<const InputEntry> input;
  const MonthClosing* closing = nullptr;
};

/// An employee cannot be paid from the records as they are; the text says why.
class NotPayable : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Makes slips by the published operations. Reads the social security rates once.
class SlipMaker {
 public:
  SlipMaker(RunServices& services, Attendance& attendance);

  /// The slip without its number. NotPayable, or the errors of the operations.
  Slip make(const SlipOrder& order);

 private:
  std::unique_ptr<_EmployeeObject> profileOfType(const EmployeeType& type);
  std::unique_ptr<_EmployeeObject> profileOf(const SlipOrder& order, double quantity);
  void addSalary(const SlipOrder& order, Slip& slip);
  void addInput(const SlipOrder& order, Slip& slip);
  void closeMonth(const SlipOrder& order, Slip& slip);
  void addSocialSecurity(const SlipOrder& order, const PaySums& month, Slip& slip);
  void addFund(const SlipOrder& order, const PaySums& month, Slip& slip);
  void addTax(const SlipOrder& order, Slip& slip);
  Currency percentOf(double base, double percent);

  RunServices& services_;
  Attendance& attendance_;
  WorkCalendar calendar_;
  double selfRate_;      // percent
  double employerRate_;  // percent
};

}  // namespace kt7::payroll
