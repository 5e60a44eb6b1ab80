#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/retry/wait_notice.h"
#include "payroll/share/part_lease.h"
#include "payroll/share/shared_plan.h"
#include "payroll/workers/report_queue.h"
#include "payroll/workers/worker_threads.h"

namespace kt7::payroll {

/// Numbers the new slips of a part by their employees' positions in it.
class PartNumbers : public SlipNumbers {
 public:
  explicit PartNumbers(const PartLease& lease) : lease_(lease) {}
  void give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) override;
  void replace(std::span<SlipChange> changes, RunServices& services) override;

 private:
  const PartLease& lease_;
};

/// How a shared run stands for a worker that has no more to do: all is done, or another process has
/// planned the run once more.
enum class RunState { Done, BegunAnew };

/// One worker of a shared run: leases parts and pays them. Every transaction first checks and
/// renews the lease.
class SharedWorker {
 public:
  SharedWorker(const SharedPlan& shared, const Sharing& sharing, RunServices& services,
               std::string name);

  /// Pays parts until those of all workers are done.
  [[nodiscard]] RunState payParts(ReportQueue& reports);
  /// Ends the month, or waits until another worker has ended it. `named`: the employees whom this
  /// process has reported as not paid.
  [[nodiscard]] RunState end(RunListener& listener, const UnpaidSlips& named,
                             const ReportSink& told);

 private:
  enum class TakeResult { Taken, Wait, AllDone, BegunAnew };
  /// What became of a part that the worker had taken.
  enum class PartResult { Done, TakenOver };

  TakeResult takePart(const std::string& parts);
  RunState payPeriod(std::size_t period, ReportQueue& reports);
  PartResult payPart(const SlipPeriod& period, ReportQueue& reports);
  PartResult endMonth(const UnpaidSlips& named, const ReportSink& told);
  PartResult markDone();
  Report lostPartReport();
  /// Pauses before the next look at the parts of that name, with a notice if it takes long.
  void waitFor(const std::string& parts, const ReportSink& told);

  const SharedPlan& shared_;
  RunServices& services_;
  PartLease lease_;
  PartNumbers numbers_;
  PagePayer payer_;
  WaitNotice waiting_;
};

}  // namespace kt7::payroll
