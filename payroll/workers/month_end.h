#pragma once

#include <kt7/payroll/run_listener.h>
#include "payroll/ports/run_services.h"
#include "payroll/workers/worker_threads.h"

namespace kt7::payroll {

/// Removes slips that are no longer due: of employees who left or changed type, and of pay dates
/// that no longer exist.
void removeUndueSlips(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                      const ReportSink& told);

/// Reports as failed the employees who are due a slip and have none, except those in `named`, who
/// have been reported already. Their code or type changed while the month was paid, or another
/// process could not pay them. The same for codes of the input that no longer exist.
void reportMissingSlips(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                        const UnpaidSlips& named, const ReportSink& told);

// Notes beside the slips.
void noteUntypedEmployees(const MonthPlan& plan, RunServices& services, RunListener& listener);
void noteLaterMonths(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                     RunListener& listener);

}  // namespace kt7::payroll
