#include "payroll/workers/month_end.h"

#include <kt7/payroll/run_listener.h>
#include "payroll/facts/slip_period.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

namespace {

constexpr int kSlipsAtOnce = 200;
constexpr int kCodesShown = 5;

constexpr const char* kLeftOut =
    "there is no slip: the code or the type was changed while the month was paid, or another "
    "process could not pay; run the month again";
constexpr const char* kInputLost =
    "the input names the employee, whose code was changed while the month was paid; write the new "
    "code in the input and run the month again";

void removeUndueSlips(UndueQuery query, RunServices& services, PagePayer& payer,
                      const ReportSink& told) {
  for (;;) {
    const auto slips = payer.retryOnLoss([&] { return services.company.undueSlips(query); });
    if (slips.empty()) return;
    query.afterNumber = slips.back().number;
    payer.remove(slips);
    told(payer.takeReport());
  }
}

/// Asks for the employees in groups; the set is in the order of codes.
void reportLostInput(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                     const ReportSink& told) {
  UnpaidSlips entered;
  for (const InputEntry& entry : plan.input.entries()) {
    entered.emplace(entry.employee, entry.payDate.dayNumber());
  }
  for (auto next = entered.begin(); next != entered.end();) {
    std::map<std::string, std::int32_t> gone;
    for (; next != entered.end() && gone.size() < kEmployeesAtOnce; ++next) gone.insert(*next);
    std::vector<std::string> codes;
    codes.reserve(gone.size());
    for (const auto& [code, payDate] : gone) codes.push_back(code);
    const auto standing = payer.retryOnLoss([&] { return services.company.employees(codes); });
    for (const Employee& employee : standing) gone.erase(employee.code);
    Report report;
    for (const auto& [code, payDate] : gone) {
      report.countFailed(code, Date::fromSerial(payDate), kInputLost);
    }
    told(report);
  }
}

}  // namespace

void removeUndueSlips(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                      const ReportSink& told) {
  payer.catchUp();
  const auto dates = payer.retryOnLoss(
      [&] { return services.company.slipDates(plan.onlyType, plan.month.days()); });
  for (const SlipDate& date : dates) {
    if (plan.isFrozen(date.type, date.payDate)) continue;
    const SlipPeriod* period = plan.period(date.type, date.payDate);
    UndueQuery query{date, std::nullopt, "", kSlipsAtOnce};
    if (period != nullptr) query.paidDays = period->salary;
    removeUndueSlips(query, services, payer, told);
  }
}

void reportMissingSlips(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                        const UnpaidSlips& named, const ReportSink& told) {
  for (const SlipPeriod& period : plan.periods) {
    if (period.frozen) continue;
    EmployeeQuery query{period.type, period.salary, "", kEmployeesAtOnce};
    for (;;) {
      const auto employees = payer.retryOnLoss(
          [&] { return services.company.employeesWithoutSlip(query, period.payDate); });
      if (employees.empty()) break;
      query.afterCode = employees.back().code;
      Report report;
      for (const Employee& employee : employees) {
        const bool isNamed = named.contains({employee.code, period.payDate.dayNumber()});
        if (isDue(employee, period) && !isNamed) {
          report.countFailed(employee.code, period.payDate, kLeftOut);
        }
      }
      told(report);
    }
  }
  reportLostInput(plan, services, payer, told);
}

void noteUntypedEmployees(const MonthPlan& plan, RunServices& services, RunListener& listener) {
  if (!plan.onlyType.empty()) return;
  const auto codes = services.company.employeesWithoutType(plan.month.days(), kCodesShown);
  if (codes.empty()) return;
  std::string list;
  for (const std::string& code : codes) list += (list.empty() ? "" : ", ") + code;
  listener.note("employees whose type is not in use are not paid: " + list +
                (codes.size() == kCodesShown ? " and perhaps more" : ""));
}

void noteLaterMonths(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                     RunListener& listener) {
  const DaySpan rest{plan.month.lastDay().plusDays(1), Date::fromYmd(plan.month.year(), 12, 31)};
  if (rest.empty() || !payer.retryOnLoss([&] { return services.company.hasSlips(rest); })) return;
  listener.note("later months of " + std::to_string(plan.month.year()) +
                " are paid already: run them again, their tax builds on this month");
}

}  // namespace kt7::payroll
