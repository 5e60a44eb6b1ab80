#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "collab/data_obj.h"
#include "collab/setting_store.h"
#include "collab/utility_object.h"
#include "interface/_employee_object.h"
#include "interface/_hr_object.h"
#include "payroll/run/employee.h"
#include "payroll/run/leases.h"
#include "payroll/run/slip.h"

namespace kt7::payroll {

/// A slip that an earlier run wrote, with what its balance holds.
struct KnownSlip {
  std::string number;
  std::string employee;
  std::string type;
  Date payDate;
  DaySpan span;
  Currency net;
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

/// Slips written as one unit: what happens between begin and commit holds altogether or, after a
/// rollback, not at all. One unit may take any number of employees.
class SlipBook {
 public:
  virtual ~SlipBook() = default;

  virtual void begin() = 0;
  /// Writes the slip with its items over what stands under its number.
  virtual void save(const Slip& slip) = 0;
  /// Takes away the slip, its items and its balance.
  virtual void remove(const KnownSlip& slip) = 0;
  /// Whether this slip stands under its number with its items and its balance.
  virtual bool stands(const Slip& slip) = 0;
  virtual void commit() = 0;
  /// Never raises: the error that made it necessary is the one to tell.
  virtual void rollback() noexcept = 0;
};

/// Who is told what the run does, while it does it.
class RunListener {
 public:
  virtual ~RunListener() = default;

  /// A slip that now stands in the database.
  virtual void paid(const Slip& slip) = 0;
  /// A slip of a frozen period, which stands as it was paid.
  virtual void standing(const Slip& /*slip*/) {}
  virtual void note(const std::string& text) = 0;
  /// An employee who was not paid on that date, and why.
  virtual void failed(const std::string& employee, Date payDate, const std::string& cause) = 0;
  /// Whether progress is worth counting the employees for.
  virtual bool wantsProgress() const { return false; }
  virtual void progress(int /*done*/, int /*total*/) {}
};

/// What the run works with. Everything outlives it.
struct RunServices {
  _HRObject& hr;
  DataObj& dataObj;
  UtilityObject& utility;
  SettingStore& settings;
  Company& company;
  SlipBook& book;
  RunLeases& leases;
  std::function<std::unique_ptr<_EmployeeObject>()> newProfile;
  std::function<Date()> now;
  /// Whether a message was shown to the user since the last time it was asked.
  std::function<bool()> messageShown;
  /// Takes another connection in place of one that was lost.
  std::function<void()> reconnect;
  /// From here on the connection sees what was kept anywhere in a cluster before; nothing where a
  /// single server answers.
  std::function<void()> catchUp = [] {};
};

/// One worker's services with the connections behind them, used by one thread at a time.
class Worker {
 public:
  virtual ~Worker() = default;
  virtual RunServices& services() = 0;
};

/// The data object's connection, open as long as this lives.
class OpenData {
 public:
  explicit OpenData(DataObj& dataObj) : dataObj_(dataObj) { dataObj_.OpenConnection(); }
  OpenData(const OpenData&) = delete;
  OpenData& operator=(const OpenData&) = delete;
  ~OpenData() {
    try {
      dataObj_.CloseConnection();
    } catch (const std::exception&) {
      // What was paid has been committed; a connection that does not close changes nothing.
    }
  }

 private:
  DataObj& dataObj_;
};

using NewWorker = std::function<std::unique_ptr<Worker>()>;

}  // namespace kt7::payroll
