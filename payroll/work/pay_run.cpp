#include "payroll/work/pay_run.h"

#include "payroll/facts/slip_period.h"
#include "payroll/month/other_runs.h"
#include "payroll/work/month_end.h"
#include "payroll/work/worker_threads.h"

namespace kt7::payroll {

namespace {

class MonthRun {
 public:
  MonthRun(const MonthPlan& plan, RunServices& services, RunListener& listener)
      : plan_(plan),
        services_(services),
        listener_(listener),
        queue_(plan, 1),
        payer_(plan, services, queue_) {}

  RunOutcome run(int jobs, const NewWorker& newWorker) {
    noteUntypedEmployees(plan_, services_, listener_);
    countWork();
    if (jobs > 1 && newWorker) {
      payByCrew(plan_, jobs, newWorker, [this](const Report& report) { tell(report); });
    } else {
      payAlone();
    }
    removeUndueSlips(plan_, services_, payer_, [this](const Report& report) { tell(report); });
    noteLaterMonths(plan_, services_, payer_, listener_);
    return outcome_;
  }

 private:
  void payAlone() {
    while (const auto page = payer_.doing([&] { return queue_.take(services_); })) {
      tellReady();
      try {
        payPage(payer_, queue_, *page);
      } catch (...) {
        tellReady();
        throw;
      }
      tellReady();
    }
    tellReady();
  }

  void tellReady() {
    while (const auto report = queue_.readyReport()) tell(*report);
  }

  void tell(const Report& report) {
    report.tellTo(listener_);
    outcome_ += report.outcome;
    if (report.employees == 0) return;
    done_ += report.employees;
    if (listener_.wantsProgress()) listener_.progress(done_, total_);
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
  PageQueue queue_;
  PagePayer payer_;
  RunOutcome outcome_;
  int done_ = 0;
  int total_ = 0;
};

}  // namespace

RunOutcome runMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    const NewWorker& newWorker) {
  const OpenData open(services.dataObj);
  endOtherRuns(request, services);
  const MonthPlan plan = planMonth(request, services, listener);
  return MonthRun(plan, services, listener).run(request.jobs, newWorker);
}

}  // namespace kt7::payroll
