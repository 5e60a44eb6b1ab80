#pragma once

#include "payroll/ports/run_services.h"
#include "payroll/workers/page_payer.h"
#include "payroll/workers/page_queue.h"

namespace kt7::payroll {

/// Pays one page of the queue and gives the queue its report, also if an error is raised.
void payPage(PagePayer& payer, PageQueue& queue, const Page& page);

/// Receives the reports, in the caller's thread.
using ReportSink = std::function<void(const Report& report)>;

/// Pays the month by that many workers, each in a thread of its own. An error in one of them stops
/// all; it is raised when the last has ended and everything that was paid has been reported.
void payByThreads(const MonthPlan& plan, int workers, const NewWorker& newWorker,
                  const ReportSink& told);

}  // namespace kt7::payroll
