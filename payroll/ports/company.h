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

/// A slip in the database, with the totals of its balance.
struct KnownSlip {
  std::string number;
  std::string employee;
  std::string type;
  Date payDate;
  DaySpan span;
  PaySums sums;
};

/// Asks for the employees of a type who get slips and were employed on a day of the span, in code
/// order.
struct EmployeeQuery {
  std::string type;
  DaySpan span;
  std::string afterCode;
  int limit = 0;
  std::string lastCode = {};  // up to and including this code; "" for no limit
};

/// An employee type and a pay date.
struct SlipDate {
  std::string type;
  Date payDate;
};

/// Asks for the slips of a type and pay date that are not due, in number order: all of them if
/// `paidDays` is empty, else those of employees who are no longer of the type, were not employed on
/// those days, or get no slips.
struct UndueQuery {
  SlipDate of;
  std::optional<DaySpan> paidDays;
  std::string afterNumber;
  int limit = 0;
};

/// The company's records as the run reads them. Answers that grow with the number of employees come
/// in pages. Failures are Error of kind database.
class Company {
 public:
  virtual ~Company() = default;

  /// The types in use, in code order.
  virtual std::vector<TypeRow> types() = 0;
  /// The slip periods with a pay date in the span, of all types.
  virtual std::vector<SlipPeriod> slipPeriods(const DaySpan& payDates) = 0;
  /// How many employees `employees` answers on all pages.
  virtual int countEmployees(const std::string& type, const DaySpan& span) = 0;
  virtual std::vector<Employee> employees(const EmployeeQuery& query) = 0;
  virtual std::vector<Employee> employees(const std::vector<std::string>& codes) = 0;
  /// Those employees of the query who have no slip of the pay run on that pay date.
  virtual std::vector<Employee> employeesWithoutSlip(const EmployeeQuery& query, Date payDate) = 0;
  /// The codes of at most `limit` employees who were employed in the span and whose type is not in
  /// use.
  virtual std::vector<std::string> employeesWithoutType(const DaySpan& span, int limit) = 0;
  virtual std::vector<KnownSlip> slips(const std::vector<std::string>& employees,
                                       const DaySpan& payDates) = 0;
  /// The slips of a type and pay date with their items, in the order of employees.
  virtual std::vector<Slip> paidSlips(const SlipDate& of, const std::string& afterEmployee,
                                      int limit) = 0;
  /// The types and pay dates in the span that have slips; type "" for all types.
  virtual std::vector<SlipDate> slipDates(const std::string& type, const DaySpan& payDates) = 0;
  virtual std::vector<KnownSlip> undueSlips(const UndueQuery& query) = 0;
  virtual bool hasSlips(const DaySpan& payDates) = 0;
  /// The totals of the balances of those pay dates, by employee code.
  virtual std::map<std::string, PaySums> balances(const std::vector<std::string>& employees,
                                                  const DaySpan& payDates) = 0;
  /// The types with rates for the attendance allowance.
  virtual std::set<std::string> typesWithAllowance() = 0;
  /// The salary in the latest row of each employee's position history; no entry without a row.
  virtual std::map<std::string, double> latestSalaries(
      const std::vector<std::string>& employees) = 0;
  /// The greatest slip number of the pay date that has the form of slipNumber(); "" for none.
  virtual std::string lastSlipNumber(Date payDate) = 0;
};

}  // namespace kt7::payroll
