#pragma once

#include <kt7/payroll/run_listener.h>
#include "payroll/ports/run_services.h"
#include "payroll/work/worker_threads.h"

namespace kt7::payroll {

/// Takes away slips of employees whom no period of theirs met: those who left, whose type changed,
/// or whose pay date is none any more.
void removeUndueSlips(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                      const TakeReport& told);

// What the run tells beside its slips.
void noteUntypedEmployees(const MonthPlan& plan, RunServices& services, RunListener& listener);
void noteLaterMonths(const MonthPlan& plan, RunServices& services, PagePayer& payer,
                     RunListener& listener);

}  // namespace kt7::payroll
