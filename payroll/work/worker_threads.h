#pragma once

#include "payroll/ports/run_services.h"
#include "payroll/work/page_payer.h"
#include "payroll/work/page_queue.h"

namespace kt7::payroll {

/// Pays one page of the queue and hands its report over, also where an error leaves.
void payPage(PagePayer& payer, PageQueue& queue, const Page& page);

/// Is passed every report in the order of the pages, in the caller's thread.
using TakeReport = std::function<void(const Report& report)>;

/// Pays the month's pages by that many workers, each in a thread of its own. The error that stopped
/// one of them stops all and leaves when the last has ended; what holds has been told by then.
void payByCrew(const MonthPlan& plan, int workers, const NewWorker& newWorker,
               const TakeReport& told);

}  // namespace kt7::payroll
