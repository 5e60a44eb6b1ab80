#include <atomic>
#include <random>

#include <kt7/payroll/run_errors.h>
#include "payroll/share/shared_progress.h"
#include "payroll/share/shared_worker.h"
#include "payroll/workers/month_end.h"
#include "payroll/workers/report_queue.h"
#include "payroll/workers/threads.h"
#include "payroll/workers/told_slips.h"

namespace kt7::payroll {

namespace {

/// A unique name that begins with the name that people know the process by.
std::string workerName(const Sharing& sharing, int number) {
  std::random_device random;
  return sharing.name + " " + std::to_string(random()) + std::to_string(random()) + "-" +
         std::to_string(number);
}

std::unique_ptr<SharedWorker> sharedWorker(const SharedPlan& shared, const RunRequest& request,
                                           RunServices& services, const std::string& name) {
  return buildWithRetry(services, [&] {
    return std::make_unique<SharedWorker>(shared, *request.sharing, services, name);
  });
}

/// Passes the reports on until the last worker has ended. After an error too, so that every slip
/// that was paid is reported; the error is raised then.
void tellAll(ReportQueue& reports, Threads& threads, const ReportSink& told,
             SharedProgress& progress, const RunListener& listener) {
  const auto stopWhereAsked = [&] {
    if (listener.wantsToStop()) throw RunInterrupted();
  };
  const auto meanwhile = [&] {
    progress.look();
    stopWhereAsked();
  };
  try {
    while (const auto report = reports.next(meanwhile)) {
      told(*report);
      progress.count(*report);
      stopWhereAsked();
    }
  } catch (...) {
    reports.stop(std::current_exception());
  }
  threads.join();
  while (const auto report = reports.next([] {})) told(*report);
  reports.raiseReason();
}

/// Pays parts by the process's workers until all are done.
RunState payParts(const SharedPlan& shared, const RunRequest& request, const NewWorker& newWorker,
                  const ReportSink& told, SharedProgress& progress, const RunListener& listener) {
  ReportQueue reports(request.jobs);
  std::atomic<RunState> state = RunState::Done;
  Threads threads;
  std::atomic<int> number = 0;
  threads.start(request.jobs, [&] {
    try {
      const auto worker = newWorker();
      const OpenData open(worker->services().dataObj);
      const std::string name = workerName(*request.sharing, ++number);
      const auto member = sharedWorker(shared, request, worker->services(), name);
      if (member->payParts(reports) == RunState::BegunAnew) state = RunState::BegunAnew;
    } catch (...) {
      reports.stop(std::current_exception());
    }
    reports.workerEnds();
  });
  tellAll(reports, threads, told, progress, listener);
  return state;
}

}  // namespace

RunOutcome runSharedMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                          const NewWorker& newWorker) {
  const OpenData open(services.dataObj);
  const std::string name = workerName(*request.sharing, 0);
  RunOutcome outcome;
  UnpaidSlips unpaid;
  ToldSlips toldSlips(listener);
  const ReportSink told = [&](const Report& report) {
    outcome += toldSlips.tell(report);
    report.addUnpaidTo(unpaid);
  };
  for (bool rejoins = false;; rejoins = true) {
    const auto shared = joinRun(request, services, listener, name, rejoins);
    if (!shared) return outcome;
    auto progress =
        buildWithRetry(services, [&] { return SharedProgress(*shared, services, listener); });
    if (payParts(*shared, request, newWorker, told, progress, listener) == RunState::BegunAnew) {
      continue;
    }
    const auto last = sharedWorker(*shared, request, services, name);
    if (last->end(listener, unpaid, told) == RunState::Done) return outcome;
  }
}

}  // namespace kt7::payroll
