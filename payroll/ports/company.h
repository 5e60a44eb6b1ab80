#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "payroll/facts/employee.h"
#include "payroll/facts/employee_type.h"
#include "payroll/facts/pay_sums.h"
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

/// A slip that an earlier run wrote, with what its balance holds.
struct KnownSlip {
  std::string number;
  std::string employee;
  std::string type;
  Date payDate;
  DaySpan span;
  PaySums sums;
};

/// The employees of a type who get slips and were employed on some day of a span, in code order.
struct EmployeeQuery {
  std::string type;
  DaySpan span;
  std::string afterCode;
  int limit = 0;
  std::string lastCode = {};  // the greatest that counts, "" for no end
};

/// A type and a pay date that slips stand under.
struct SlipDate {
  std::string type;
  Date payDate;
};

/// The slips of a type and pay date that nobody is due: all of them where `paidDays` is empty, else
/// those of employees who are not of the type any more, were not employed on those days or get no
/// slips. In number order.
struct UndueQuery {
  SlipDate of;
  std::optional<DaySpan> paidDays;
  std::string afterNumber;
  int limit = 0;
};

/// What the run asks of the company's records. Every answer is bounded: whatever grows with the
/// number of employees comes in pages. Failures are Error of kind database.
class Company {
 public:
  virtual ~Company() = default;

  /// The types in use, in code order.
  virtual std::vector<TypeRow> types() = 0;
  /// The slip periods with a pay date in the span, of all types.
  virtual std::vector<SlipPeriod> slipPeriods(const DaySpan& payDates) = 0;
  /// How many employees `employees` answers in all.
  virtual int countEmployees(const std::string& type, const DaySpan& span) = 0;
  virtual std::vector<Employee> employees(const EmployeeQuery& query) = 0;
  virtual std::vector<Employee> employees(const std::vector<std::string>& codes) = 0;
  /// Those of the query who have no slip of the run on that pay date.
  virtual std::vector<Employee> employeesWithoutSlip(const EmployeeQuery& query, Date payDate) = 0;
  /// The codes of employees (at most `limit`) who were employed in the span and whose type is none
  /// of those in use.
  virtual std::vector<std::string> employeesWithoutType(const DaySpan& span, int limit) = 0;
  virtual std::vector<KnownSlip> slips(const std::vector<std::string>& employees,
                                       const DaySpan& payDates) = 0;
  /// The slips that stand under a type and pay date, with their items, in the order of employees.
  virtual std::vector<Slip> paidSlips(const SlipDate& of, const std::string& afterEmployee,
                                      int limit) = 0;
  /// Where slips stand in a span of pay dates, of one type or ("") of all.
  virtual std::vector<SlipDate> slipDates(const std::string& type, const DaySpan& payDates) = 0;
  virtual std::vector<KnownSlip> undueSlips(const UndueQuery& query) = 0;
  virtual bool hasSlips(const DaySpan& payDates) = 0;
  /// What the balances of those pay dates add up to, by employee.
  virtual std::map<std::string, PaySums> balances(const std::vector<std::string>& employees,
                                                  const DaySpan& payDates) = 0;
  /// The types that have rates of an attendance allowance.
  virtual std::set<std::string> typesWithAllowance() = 0;
  /// The salary of the latest row of each employee's position history; none for those without one.
  virtual std::map<std::string, double> latestSalaries(
      const std::vector<std::string>& employees) = 0;
  /// The greatest slip number of the pay date in the run's own form, "" for none.
  virtual std::string lastSlipNumber(Date payDate) = 0;
};

}  // namespace kt7::payroll
