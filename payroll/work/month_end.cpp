#include "payroll/work/month_end.h"

#include <kt7/payroll/run_listener.h>
#include "payroll/facts/slip_period.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

namespace {

constexpr int kSlipsAtOnce = 200;
constexpr int kCodesShown = 5;

void removeUndueSlips(UndueQuery query, RunServices& services, PagePayer& payer,
                      const TakeReport& told) {
  for (;;) {
    const auto slips = payer.doing([&] { return services.company.undueSlips(query); });
    if (slips.empty()) return;
    query.afterNumber = slips.back().number;
    payer.remove(slips);
    told(payer.takeReport());
  }
}

}  // namespace

void removeUndueSlips(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                      const TakeReport& told) {
  payer.catchUp();
  const auto dates =
      payer.doing([&] { return services.company.slipDates(plan.onlyType, plan.month.days()); });
  for (const SlipDate& date : dates) {
    if (plan.isFrozen(date.type, date.payDate)) continue;
    const SlipPeriod* period = plan.period(date.type, date.payDate);
    UndueQuery query{date, std::nullopt, "", kSlipsAtOnce};
    if (period != nullptr) query.paidDays = period->salary;
    removeUndueSlips(query, services, payer, told);
  }
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
  if (rest.empty() || !payer.doing([&] { return services.company.hasSlips(rest); })) return;
  listener.note("later months of " + std::to_string(plan.month.year()) +
                " are paid already: run them again, their tax builds on this month");
}

}  // namespace kt7::payroll
