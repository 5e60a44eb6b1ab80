#include "payroll/store/company_store.h"

#include "payroll/facts/pay_sums.h"
#include "payroll/facts/slip_number.h"
#include "payroll/facts/slip_period.h"
#include "payroll/ports/company.h"
#include "payroll/store/row_mapping.h"

namespace kt7::payroll {

namespace {

/// A date that some hosts write where none was entered.
constexpr const char* kZeroDate = "#$1899-12-30#$";

constexpr const char* kGetsSlips = "(TEm2SkipSlip IS NULL OR TEm2SkipSlip=0)";

std::string top(int limit) { return "SELECT TOP " + std::to_string(limit) + " "; }

}  // namespace

std::vector<TypeRow> CompanyStore::types() {
  std::vector<TypeRow> types;
  auto rows = records_.open("SELECT * FROM KT7TEmployeeType WHERE TEMTFlag1=1 ORDER BY TEmTCode");
  for (; !rows->Eof(); rows->MoveNext()) types.push_back(typeIn(*rows));
  return types;
}

std::vector<SlipPeriod> CompanyStore::slipPeriods(const DaySpan& payDates) {
  std::vector<SlipPeriod> periods;
  auto rows = records_.open(
      "SELECT TSaPTEmTCode, TSAPDate, TSAPPeriodNo, TSAPStartDate, TSAPEndDate, TSAPStatus, "
      "(SELECT COUNT(*) FROM KT7TEmpSlipDoc WHERE TEPSTEmTCode=TSaPTEmTCode AND "
      "TEpsTSaPDate=TSAPDate) AS SlipCount FROM KT7TEmpSlipPeriod WHERE " +
      records_.within("TSAPDate", payDates) + " ORDER BY TSAPDate, TSaPTEmTCode");
  for (; !rows->Eof(); rows->MoveNext()) periods.push_back(periodIn(*rows));
  return periods;
}

std::string CompanyStore::employedIn(const DaySpan& span) const {
  return "(TEmpSignDate IS NULL OR TEmpSignDate<=" + records_.dateText(span.last) +
         ") AND (TEmpResignDate IS NULL OR TEmpResignDate>=" + records_.dateText(span.first) +
         " OR TEmpResignDate=" + kZeroDate + ")";
}

std::string CompanyStore::paidFor(const std::string& type, const DaySpan& span) const {
  return "TEmpTEmTCode=" + records_.quoted(type) + " AND " + kGetsSlips + " AND " +
         employedIn(span);
}

int CompanyStore::countEmployees(const std::string& type, const DaySpan& span) {
  auto rows = records_.open("SELECT COUNT(*) AS Employees" + std::string(kEmployeeTables) +
                            " WHERE " + paidFor(type, span));
  return wholeIn(*rows, "Employees");
}

std::vector<Employee> CompanyStore::readEmployees(const std::string& sql) {
  std::vector<Employee> employees;
  auto rows = records_.open(sql);
  for (; !rows->Eof(); rows->MoveNext()) employees.push_back(employeeIn(*rows, records_));
  return employees;
}

std::vector<Employee> CompanyStore::employees(const EmployeeQuery& query) {
  return employees(query, "");
}

std::vector<Employee> CompanyStore::employeesWithoutSlip(const EmployeeQuery& query, Date payDate) {
  return employees(query,
                   " AND NOT EXISTS (SELECT TEPSNo FROM KT7TEmpSlipDoc WHERE TEpSTEmpCode=TEmpCode "
                   "AND TEpsTSaPDate=" +
                       records_.dateText(payDate) + " AND TEPSTEmTCode=" +
                       records_.quoted(query.type) + " AND " + ofRun("TEPS") + ")");
}

std::vector<Employee> CompanyStore::employees(const EmployeeQuery& query,
                                              const std::string& condition) {
  return readEmployees(
      top(query.limit) + kEmployeeColumns + kEmployeeTables + " WHERE " +
      paidFor(query.type, query.span) + " AND TEmpCode>" + records_.quoted(query.afterCode) +
      (query.lastCode.empty() ? "" : " AND TEmpCode<=" + records_.quoted(query.lastCode)) +
      condition + " ORDER BY TEmpCode");
}

std::vector<Employee> CompanyStore::employees(const std::vector<std::string>& codes) {
  if (codes.empty()) return {};
  return readEmployees("SELECT " + std::string(kEmployeeColumns) + kEmployeeTables +
                       " WHERE TEmpCode IN " + records_.listOf(codes));
}

std::vector<std::string> CompanyStore::employeesWithoutType(const DaySpan& span, int limit) {
  std::vector<std::string> codes;
  auto rows = records_.open(
      top(limit) + "TEmpCode" + kEmployeeTables + " WHERE " + kGetsSlips + " AND " +
      employedIn(span) +
      " AND NOT EXISTS (SELECT TEmTCode FROM KT7TEmployeeType WHERE TEmTCode=TEmpTEmTCode AND "
      "TEMTFlag1=1) ORDER BY TEmpCode");
  for (; !rows->Eof(); rows->MoveNext()) codes.push_back(textIn(*rows, "TEmpCode"));
  return codes;
}

std::vector<KnownSlip> CompanyStore::readSlips(const std::string& sql) {
  std::vector<KnownSlip> slips;
  auto rows = records_.open(sql);
  for (; !rows->Eof(); rows->MoveNext()) slips.push_back(slipIn(*rows));
  return slips;
}

std::vector<KnownSlip> CompanyStore::slips(const std::vector<std::string>& employees,
                                           const DaySpan& payDates) {
  if (employees.empty()) return {};
  return readSlips("SELECT " + std::string(kSlipColumns) + kSlipTables + " WHERE TEpSTEmpCode IN " +
                   records_.listOf(employees) + " AND " +
                   records_.within("TEpsTSaPDate", payDates) + " AND " + ofRun("TEPS") +
                   " ORDER BY TEPSNo");
}

std::vector<Slip> CompanyStore::paidSlips(const SlipDate& of, const std::string& afterEmployee,
                                          int limit) {
  std::vector<Slip> slips;
  auto rows = records_.open(
      top(limit) + kPaidSlipColumns + " WHERE TEPSTEmTCode=" + records_.quoted(of.type) +
      " AND TEpsTSaPDate=" + records_.dateText(of.payDate) + " AND " + ofRun("TEPS") +
      " AND TEpSTEmpCode>" + records_.quoted(afterEmployee) + " ORDER BY TEpSTEmpCode");
  for (; !rows->Eof(); rows->MoveNext()) slips.push_back(paidSlipIn(*rows));
  readItems(slips);
  return slips;
}

void CompanyStore::readItems(std::vector<Slip>& slips) {
  if (slips.empty()) return;
  std::map<std::string, Slip*> byNumber;
  std::vector<std::string> numbers;
  for (Slip& slip : slips) {
    byNumber[slip.number] = &slip;
    numbers.push_back(slip.number);
  }
  auto rows = records_.open("SELECT " + std::string(kItemColumns) + " WHERE TSmbTEPSNo IN " +
                            records_.listOf(numbers) + " ORDER BY TSmbTEPSNo, TSmbLn");
  for (; !rows->Eof(); rows->MoveNext()) {
    byNumber.at(textIn(*rows, "TSmbTEPSNo"))->items.push_back(itemIn(*rows));
  }
}

std::vector<SlipDate> CompanyStore::slipDates(const std::string& type, const DaySpan& payDates) {
  std::vector<SlipDate> dates;
  auto rows = records_.open(
      "SELECT DISTINCT TEPSTEmTCode, TEpsTSaPDate FROM KT7TEmpSlipDoc WHERE " +
      (type.empty() ? "" : "TEPSTEmTCode=" + records_.quoted(type) + " AND ") +
      records_.within("TEpsTSaPDate", payDates) + " ORDER BY TEpsTSaPDate, TEPSTEmTCode");
  for (; !rows->Eof(); rows->MoveNext()) {
    dates.push_back({textIn(*rows, "TEPSTEmTCode"), rows->get("TEpsTSaPDate").toDate()});
  }
  return dates;
}

std::vector<KnownSlip> CompanyStore::undueSlips(const UndueQuery& query) {
  std::string sql = top(query.limit) + kSlipColumns + kSlipTables +
                    " WHERE TEPSTEmTCode=" + records_.quoted(query.of.type) +
                    " AND TEpsTSaPDate=" + records_.dateText(query.of.payDate) + " AND " +
                    ofRun("TEPS") + " AND TEPSNo>" + records_.quoted(query.afterNumber);
  if (query.paidDays) {
    sql += " AND NOT EXISTS (SELECT TEmpCode" + std::string(kEmployeeTables) +
           " WHERE TEmpCode=TEpSTEmpCode AND " + paidFor(query.of.type, *query.paidDays) + ")";
  }
  return readSlips(sql + " ORDER BY TEPSNo");
}

bool CompanyStore::hasSlips(const DaySpan& payDates) {
  auto rows = records_.open(top(1) + "TEPSNo FROM KT7TEmpSlipDoc WHERE " +
                            records_.within("TEpsTSaPDate", payDates) + " AND " + ofRun("TEPS"));
  return !rows->Eof();
}

std::map<std::string, PaySums> CompanyStore::balances(const std::vector<std::string>& employees,
                                                      const DaySpan& payDates) {
  std::map<std::string, PaySums> sums;
  if (employees.empty() || payDates.empty()) return sums;
  auto rows = records_.open(
      "SELECT TEATTEmpCode, SUM(TEATAddTotal) AS TEATAddTotal, "
      "SUM(TEATSubTipBonus) AS TEATSubTipBonus, SUM(TEATSubSalary) AS TEATSubSalary, "
      "SUM(TEATCutSTAX) AS TEATCutSTAX, SUM(TEATCutSFund) AS TEATCutSFund, "
      "SUM(TEATCutTAX) AS TEATCutTAX FROM KT7TEmpAmassType WHERE TEATTEmpCode IN " +
      records_.listOf(employees) + " AND " + records_.within("TEATPaymentDate", payDates) +
      " AND " + ofRun("TEAT") + " AND TEATBalanceFlag=0 GROUP BY TEATTEmpCode");
  for (; !rows->Eof(); rows->MoveNext()) {
    sums.emplace(textIn(*rows, "TEATTEmpCode"), balanceSumsIn(*rows));
  }
  return sums;
}

std::set<std::string> CompanyStore::typesWithAllowance() {
  std::set<std::string> types;
  auto rows = records_.open("SELECT DISTINCT TETRTEmTCode FROM KT7TEmpTipRate");
  for (; !rows->Eof(); rows->MoveNext()) types.insert(textIn(*rows, "TETRTEmTCode"));
  return types;
}

std::map<std::string, double> CompanyStore::latestSalaries(
    const std::vector<std::string>& employees) {
  std::map<std::string, double> salaries;
  if (employees.empty()) return salaries;
  auto rows = records_.open(
      "SELECT TEHPTEmpCode, TEHPSalary FROM KT7TEmpHisPosition WHERE TEHPTEmpCode IN " +
      records_.listOf(employees) + " ORDER BY TEHPTEmpCode, TEHPStartDate, TEHPLn");
  for (; !rows->Eof(); rows->MoveNext()) {
    salaries[textIn(*rows, "TEHPTEmpCode")] = numberIn(*rows, "TEHPSalary");
  }
  return salaries;
}

std::string CompanyStore::lastSlipNumber(Date payDate) {
  const std::string lowest = slipNumber(payDate, 0);
  const std::string highest = slipNumber(payDate, kHighestSequence);
  auto rows =
      records_.open(top(1) + "TEPSNo FROM KT7TEmpSlipDoc WHERE TEPSNo>=" + records_.quoted(lowest) +
                    " AND TEPSNo<=" + records_.quoted(highest) + " ORDER BY TEPSNo DESC");
  return rows->Eof() ? "" : textIn(*rows, "TEPSNo");
}

}  // namespace kt7::payroll
