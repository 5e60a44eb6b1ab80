#pragma once

#include <kt7/payroll/run_listener.h>
#include "payroll/ports/run_services.h"
#include "payroll/work/worker_threads.h"

namespace kt7::payroll {

/// Takes away slips of employees whom no period of theirs met: those who left, whose type changed,
/// or whose pay date is none any more.
void removeUndueSlips(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                      const TakeReport& told);

/// Names, and counts as failed, who is due a slip and has none, `named` aside: the code or the type
/// was changed at a moment at which no page met the employee under either, or another process could
/// not pay. So is who was named by the input and stands under that code no more.
void nameLeftOut(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                 const UnpaidSlips& named, const TakeReport& told);

// What the run tells beside its slips.
void noteUntypedEmployees(const MonthPlan& plan, RunServices& services, RunListener& listener);
void noteLaterMonths(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                     RunListener& listener);

}  // namespace kt7::payroll
