#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/retry/waiting.h"
#include "payroll/share/part_lease.h"
#include "payroll/share/shared_plan.h"
#include "payroll/work/report_queue.h"
#include "payroll/work/worker_threads.h"

namespace kt7::payroll {

/// Numbers the new slips of a part by the places of their employees in it.
class PartNumbers : public SlipNumbers {
 public:
  explicit PartNumbers(const HeldPart& held) : held_(held) {}
  void give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) override;
  void replace(std::span<SlipChange> changes, RunServices& services) override;

 private:
  const HeldPart& held_;
};

/// One worker of a shared run: takes parts by leases and pays them. Every unit of work looks first
/// whether the part is still the worker's.
class SharedWorker {
 public:
  SharedWorker(const SharedPlan& shared, const Sharing& sharing, RunServices& services,
               std::string name);

  /// Pays until everybody is paid, by whomever. False where the run was begun anew.
  bool payParts(ReportQueue& reports);
  /// Ends the run or waits until another one has. False where the run was begun anew.
  /// `named`: who has been told as not paid by this process.
  bool end(RunListener& listener, const UnpaidSlips& named, const TakeReport& told);

 private:
  enum class Look { Taken, Wait, AllDone, BegunAnew };

  Look takeOne(const std::string& parts);
  bool payPeriod(std::size_t period, ReportQueue& reports);
  /// False where the part was taken over.
  bool payPart(const SlipPeriod& period, ReportQueue& reports);
  bool endMonth(const UnpaidSlips& named, const TakeReport& told);
  bool markDone();
  Report reportOfLost();
  /// A pause before the next look at the parts of that name.
  void waitFor(const std::string& parts, const TakeReport& told);

  const SharedPlan& shared_;
  RunServices& services_;
  HeldPart held_;
  PartNumbers numbers_;
  PagePayer payer_;
  Waiting waiting_;
};

}  // namespace kt7::payroll
