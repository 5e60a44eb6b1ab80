#pragma once

#include "payroll/facts/pay_sums.h"
#include "payroll/facts/slip_period.h"
#include "payroll/ports/company.h"
#include "payroll/store/records.h"

namespace kt7::payroll {

/// The company's records in its database, read on the data object's connection.
class CompanyStore : public Company {
 public:
  explicit CompanyStore(Records& records) : records_(records) {}

  std::vector<TypeRow> types() override;
  std::vector<SlipPeriod> slipPeriods(const DaySpan& payDates) override;
  int countEmployees(const std::string& type, const DaySpan& span) override;
  std::vector<Employee> employees(const EmployeeQuery& query) override;
  std::vector<Employee> employees(const std::vector<std::string>& codes) override;
  std::vector<Employee> employeesWithoutSlip(const EmployeeQuery& query, Date payDate) override;
  std::vector<std::string> employeesWithoutType(const DaySpan& span, int limit) override;
  std::vector<KnownSlip> slips(const std::vector<std::string>& employees,
                               const DaySpan& payDates) override;
  std::vector<Slip> paidSlips(const SlipDate& of, const std::string& afterEmployee,
                              int limit) override;
  std::vector<SlipDate> slipDates(const std::string& type, const DaySpan& payDates) override;
  std::vector<KnownSlip> undueSlips(const UndueQuery& query) override;
  bool hasSlips(const DaySpan& payDates) override;
  std::map<std::string, PaySums> balances(const std::vector<std::string>& employees,
                                          const DaySpan& payDates) override;
  std::set<std::string> typesWithAllowance() override;
  std::map<std::string, double> latestSalaries(const std::vector<std::string>& employees) override;
  std::string lastSlipNumber(Date payDate) override;

 private:
  std::string employedIn(const DaySpan& span) const;
  std::string paidFor(const std::string& type, const DaySpan& span) const;
  std::vector<Employee> employees(const EmployeeQuery& query, const std::string& condition);
  std::vector<Employee> readEmployees(const std::string& sql);
  std::vector<KnownSlip> readSlips(const std::string& sql);
  void readItems(std::vector<Slip>& slips);

  Records& records_;
};

}  // namespace kt7::payroll
