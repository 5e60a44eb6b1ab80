#include "payroll/run/pay_run.h"

#include <algorithm>

#include "base/error.h"
#include "payroll/run/month_plan.h"
#include "payroll/run/slip_group.h"
#include "payroll/run/slip_maker.h"

namespace kt7::payroll {

namespace {

/// The employees of one page are asked, reckoned and written together.
constexpr int kEmployeesAtOnce = 50;
constexpr int kSlipsAtOnce = 200;
constexpr int kCodesShown = 5;

/// Everything the run knows of one page of employees.
struct Page {
  const SlipPeriod& period;
  std::vector<Employee> employees;
  std::map<std::string, std::vector<KnownSlip>> slips;
  std::map<std::string, PaySums> yearBefore;
  std::map<std::string, double> latestSalaries;
};

class MonthRun {
 public:
  MonthRun(const MonthPlan& plan, RunServices& services, RunListener& listener)
      : plan_(plan),
        services_(services),
        listener_(listener),
        attendance_(services),
        maker_(services, attendance_),
        writer_(services, attendance_, listener, outcome_) {}

  RunOutcome run() {
    noteUntypedEmployees();
    countWork();
    for (const SlipPeriod& period : plan_.periods) {
      if (period.frozen) {
        listener_.note("slip period " + period.name() + " is frozen: left alone");
      } else {
        pay(period);
      }
    }
    removeUndueSlips();
    noteLaterMonths();
    return outcome_;
  }

 private:
  void pay(const SlipPeriod& period) {
    EmployeeQuery query{period.type, period.salary, "", kEmployeesAtOnce};
    for (;;) {
      Page page{period, services_.company.employees(query), {}, {}, {}};
      if (page.employees.empty()) return;
      query.afterCode = page.employees.back().code;
      done_ += static_cast<int>(page.employees.size());
      const bool last = page.employees.size() < static_cast<std::size_t>(query.limit);
      std::erase_if(page.employees,
                    [&](const Employee& employee) { return !isDue(employee, period); });
      if (!page.employees.empty()) payPage(page);
      listener_.progress(done_, total_);
      if (last) return;
    }
  }

  void payPage(Page& page) {
    std::vector<std::string> codes;
    for (const Employee& employee : page.employees) codes.push_back(employee.code);
    for (KnownSlip& slip : services_.company.slips(codes, neighbourhood(plan_.month))) {
      page.slips[slip.employee].push_back(std::move(slip));
    }
    const bool closes = std::any_of(page.employees.begin(), page.employees.end(),
                                    [&](const Employee& e) { return isLast(e, page); });
    if (closes) {
      page.yearBefore = services_.company.balances(codes, earlierInYear());
      page.latestSalaries = services_.company.latestSalaries(codes);
    }
    std::vector<SlipChange> changes;
    for (const Employee& employee : page.employees) {
      try {
        changes.push_back(changeOf(employee, page));
      } catch (const Error& error) {
        writer_.failed(employee.code, page.period.payDate, causeOf(error));
      } catch (const NotPayable& reason) {
        writer_.failed(employee.code, page.period.payDate, reason.what());
      }
    }
    writer_.write(changes);
  }

  SlipChange changeOf(const Employee& employee, Page& page) {
    SlipChange change;
    PaySums restOfMonth;
    std::string number;
    for (const KnownSlip& known : page.slips[employee.code]) {
      const bool samePayDate =
          known.type == page.period.type && known.payDate == page.period.payDate;
      if (samePayDate) requireOwn(known);
      if (samePayDate && number.empty()) {
        number = known.number;
      } else if (samePayDate || isUndue(known, employee)) {
        change.removals.push_back(known);
      } else {
        refuseSecondPay(known, page.period);
        if (plan_.month.days().contains(known.payDate)) restOfMonth += known.sums;
      }
    }
    // The length of a run of active periods must not count a slip that is about to go.
    if (attendance_.counts(employee.type) && !change.removals.empty()) {
      if (!writer_.write({{std::nullopt, change.removals}})) {
        throw NotPayable("a slip that is no longer due stands in the way");
      }
      change.removals.clear();
    }
    const bool last = isLast(employee, page);
    const MonthClosing closing{page.yearBefore[employee.code], restOfMonth, leaves(employee)};
    change.slip = maker_.make({employee, plan_.type(employee.type), page.period,
                               plan_.input.of(employee.code, page.period.payDate),
                               last ? &closing : nullptr});
    change.slip->number = number.empty() ? nextNumber(page.period.payDate) : number;
    if (last) {
      change.history = HistoryChange{employee, historyStep(employee, page.latestSalaries),
                                     plan_.month.firstDay()};
    }
    return change;
  }

  /// The run writes over its own slips and takes them away, never those of another program.
  static bool isOwn(const KnownSlip& slip) { return slipSequence(slip.number, slip.payDate) > 0; }

  static void requireOwn(const KnownSlip& slip) {
    if (!isOwn(slip)) {
      throw NotPayable("slip " + slip.number + " of another program stands on that pay date");
    }
  }

  static void refuseSecondPay(const KnownSlip& known, const SlipPeriod& period) {
    if (!known.span.overlaps(period.salary)) return;
    throw NotPayable(common(known.span, period.salary).text() + " was paid already on " +
                     known.payDate.isoDateText() + " with slip " + known.number);
  }

  /// Whether a slip of the month stands for a period that does not pay the employee any more.
  bool isUndue(const KnownSlip& slip, const Employee& owner) const {
    if (!plan_.month.days().contains(slip.payDate)) return false;
    if (!isOwn(slip) || plan_.isFrozen(slip.type, slip.payDate)) return false;
    const SlipPeriod* period = plan_.period(slip.type, slip.payDate);
    return period == nullptr || !isDue(owner, *period);
  }

  /// Whether no later period of the month pays the employee. A frozen one pays only whom it has
  /// paid already.
  bool isLast(const Employee& employee, Page& page) const {
    const std::vector<KnownSlip>& slips = page.slips[employee.code];
    return std::none_of(plan_.periods.begin(), plan_.periods.end(), [&](const SlipPeriod& later) {
      if (!(page.period.payDate < later.payDate) || !isDue(employee, later)) return false;
      return !later.frozen || std::any_of(slips.begin(), slips.end(), [&](const KnownSlip& s) {
        return s.type == later.type && s.payDate == later.payDate;
      });
    });
  }

  /// Whether the employee has left before the days that the next month pays for begin.
  bool leaves(const Employee& employee) const {
    if (!employee.resignDate) return false;
    const auto next = plannedPeriods(plan_.type(employee.type), plan_.month.plus(1));
    return std::all_of(next.begin(), next.end(), [&](const SlipPeriod& period) {
      return *employee.resignDate < period.salary.first;
    });
  }

  DaySpan earlierInYear() const {
    return {Date::fromYmd(plan_.month.year(), 1, 1), plan_.month.firstDay().plusDays(-1)};
  }

  std::string nextNumber(Date payDate) {
    const auto [known, isNew] = lastSequence_.try_emplace(payDate.dayNumber(), 0);
    if (isNew) known->second = slipSequence(services_.company.lastSlipNumber(payDate), payDate);
    return slipNumber(payDate, ++known->second);
  }

  /// Slips of employees whom no period of theirs met: those who left, whose type changed, or whose
  /// pay date is none any more.
  void removeUndueSlips() {
    for (const SlipDate& date : services_.company.slipDates(plan_.onlyType, plan_.month.days())) {
      if (plan_.isFrozen(date.type, date.payDate)) continue;
      const SlipPeriod* period = plan_.period(date.type, date.payDate);
      UndueQuery query{date, std::nullopt, "", kSlipsAtOnce};
      if (period != nullptr) query.paidDays = period->salary;
      removeUndueSlips(query);
    }
  }

  void removeUndueSlips(UndueQuery query) {
    for (;;) {
      const std::vector<KnownSlip> slips = services_.company.undueSlips(query);
      if (slips.empty()) return;
      query.afterNumber = slips.back().number;
      std::vector<SlipChange> changes;
      for (const KnownSlip& slip : slips) {
        if (isOwn(slip)) changes.push_back({std::nullopt, {slip}});
      }
      writer_.write(changes);
    }
  }

  void noteUntypedEmployees() {
    if (!plan_.onlyType.empty()) return;
    const auto codes = services_.company.employeesWithoutType(plan_.month.days(), kCodesShown);
    if (codes.empty()) return;
    std::string list;
    for (const std::string& code : codes) list += (list.empty() ? "" : ", ") + code;
    listener_.note("employees whose type is not in use are not paid: " + list +
                   (codes.size() == kCodesShown ? " and perhaps more" : ""));
  }

  void noteLaterMonths() {
    const DaySpan rest{plan_.month.lastDay().plusDays(1),
                       Date::fromYmd(plan_.month.year(), 12, 31)};
    if (rest.empty() || !services_.company.hasSlips(rest)) return;
    listener_.note("later months of " + std::to_string(plan_.month.year()) +
                   " are paid already: run them again, their tax builds on this month");
  }

  void countWork() {
    if (!listener_.wantsProgress()) return;
    for (const SlipPeriod& period : plan_.periods) {
      if (!period.frozen) total_ += services_.company.countEmployees(period.type, period.salary);
    }
    listener_.progress(0, total_);
  }

  const MonthPlan& plan_;
  RunServices& services_;
  RunListener& listener_;
  RunOutcome outcome_;
  Attendance attendance_;
  SlipMaker maker_;
  SlipGroupWriter writer_;
  std::map<std::int32_t, int> lastSequence_;
  int done_ = 0;
  int total_ = 0;
};

/// The data object's connection, open for the length of the run.
class OpenData {
 public:
  explicit OpenData(DataObj& dataObj) : dataObj_(dataObj) { dataObj_.OpenConnection(); }
  OpenData(const OpenData&) = delete;
  OpenData& operator=(const OpenData&) = delete;
  ~OpenData() {
    try {
      dataObj_.CloseConnection();
    } catch (const Error&) {
      // What was paid has been committed; a connection that does not close changes nothing.
    }
  }

 private:
  DataObj& dataObj_;
};

}  // namespace

RunOutcome runMonth(const RunRequest& request, RunServices& services, RunListener& listener) {
  const OpenData open(services.dataObj);
  const MonthPlan plan = planMonth(request, services, listener);
  return MonthRun(plan, services, listener).run();
}

}  // namespace kt7::payroll
