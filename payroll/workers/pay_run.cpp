#include "payroll/workers/pay_run.h"

#include <kt7/payroll/run_errors.h>
#include "payroll/facts/slip_period.h"
#include "payroll/month/competing_runs.h"
#include "payroll/workers/month_end.h"
#include "payroll/workers/told_slips.h"
#include "payroll/workers/worker_threads.h"

namespace kt7::payroll {

namespace {

class MonthRun {
 public:
  MonthRun(const MonthPlan& plan, RunServices& services, RunListener& listener)
      : plan_(plan),
        services_(services),
        listener_(listener),
        toldSlips_(listener),
        queue_(plan, 1),
        payer_(buildWithRetry(services, [&] {
          return std::make_unique<PagePayer>(plan, services, queue_.numbers());
        })) {}

  RunOutcome run(int jobs, const NewWorker& newWorker) {
    payer_->retryOnLoss([&] { noteUntypedEmployees(plan_, services_, listener_); });
    if (listener_.wantsProgress()) countWork();
    stopWhereAsked();
    if (jobs > 1 && newWorker) {
      payByThreads(plan_, jobs, newWorker, [this](const Report& report) { tell(report); });
    } else {
      payAlone();
    }
    removeUndueSlips(plan_, services_, *payer_, [this](const Report& report) { tell(report); });
    reportMissingSlips(plan_, services_, *payer_, unpaid_,
                       [this](const Report& report) { tell(report); });
    noteLaterMonths(plan_, services_, *payer_, listener_);
    return outcome_;
  }

 private:
  void payAlone() {
    while (const auto page = payer_->retryOnLoss([&] { return queue_.take(services_); })) {
      tellReady();
      try {
        payPage(*payer_, queue_, *page);
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
    outcome_ += toldSlips_.tell(report);
    report.addUnpaidTo(unpaid_);
    if (report.employees == 0) return;
    done_ += report.employees;
    if (listener_.wantsProgress()) listener_.progress(done_, total_);
    stopWhereAsked();
  }

  /// Raises only once: what other workers have paid by then is still reported.
  void stopWhereAsked() {
    if (stopping_ || !listener_.wantsToStop()) return;
    stopping_ = true;
    throw RunInterrupted();
  }

  void countWork() {
    for (const SlipPeriod& period : plan_.periods) {
      if (period.frozen) continue;
      total_ += payer_->retryOnLoss(
          [&] { return services_.company.countEmployees(period.type, period.salary); });
    }
    listener_.progress(0, total_);
  }

  const MonthPlan& plan_;
  RunServices& services_;
  RunListener& listener_;
  ToldSlips toldSlips_;
  PageQueue queue_;
  std::unique_ptr<PagePayer> payer_;
  RunOutcome outcome_;
  UnpaidSlips unpaid_;
  int done_ = 0;
  int total_ = 0;
  bool stopping_ = false;
};

/// Records the notes of each attempt, so that those of a repeated one are told once.
MonthPlan planned(const RunRequest& request, RunServices& services, RunListener& listener,
                  RunOutcome& outcome) {
  Report attempt;
  const auto plan = [&] {
    attempt = Report();
    endCompetingRuns(request, services);
    return planMonth(request, services, attempt, outcome);
  };
  try {
    MonthPlan result = Recovery(services, outcome).retryOnLossOrConflict(plan);
    attempt.tellTo(listener);
    return result;
  } catch (...) {
    attempt.tellTo(listener);
    throw;
  }
}

}  // namespace

RunOutcome runMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    const NewWorker& newWorker) {
  const OpenData open(services.dataObj);
  RunOutcome outcome;
  const MonthPlan plan = planned(request, services, listener, outcome);
  outcome += MonthRun(plan, services, listener).run(request.jobs, newWorker);
  return outcome;
}

}  // namespace kt7::payroll
