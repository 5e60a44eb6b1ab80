#include "payroll/workers/worker_threads.h"

#include "payroll/ports/run_services.h"
#include "payroll/workers/threads.h"

namespace kt7::payroll {

namespace {

void work(const MonthPlan& plan, const NewWorker& newWorker, PageQueue& queue) {
  try {
    const auto worker = newWorker();
    RunServices& services = worker->services();
    const OpenData open(services.dataObj);
    const auto payer = buildWithRetry(
        services, [&] { return std::make_unique<PagePayer>(plan, services, queue.numbers()); });
    while (const auto page = payer->retryOnLoss([&] { return queue.take(services); })) {
      payPage(*payer, queue, *page);
    }
  } catch (...) {
    queue.stop(std::current_exception());
  }
}

}  // namespace

void payPage(PagePayer& payer, PageQueue& queue, const Page& page) {
  try {
    payer.pay(page);
  } catch (...) {
    queue.finish(page, payer.takeReport());
    throw;
  }
  queue.finish(page, payer.takeReport());
}

void payByThreads(const MonthPlan& plan, int workers, const NewWorker& newWorker,
                  const ReportSink& told) {
  PageQueue queue(plan, workers);
  Threads threads;
  threads.start(workers, [&] { work(plan, newWorker, queue); });
  try {
    while (const auto report = queue.nextReport()) told(*report);
  } catch (...) {
    // Without a reader of the reports the workers must not go on.
    queue.stop(std::current_exception());
  }
  threads.join();
  while (const auto report = queue.readyReport(false)) told(*report);
  queue.raiseReason();
}

}  // namespace kt7::payroll
