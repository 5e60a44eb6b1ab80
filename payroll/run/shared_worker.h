#pragma once

#include "payroll/run/crew.h"
#include "payroll/run/report_queue.h"
#include "payroll/run/shared_plan.h"

namespace kt7::payroll {

/// Numbers the new slips of a part by the places of their employees in it.
class PartNumbers : public SlipNumbers {
 public:
  void begin(const RunPart& part) { part_ = &part; }
  void give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) override;

 private:
  const RunPart* part_ = nullptr;
};

/// One worker of a shared run: takes parts by leases and pays them.
class SharedWorker {
 public:
  SharedWorker(const SharedPlan& shared, const Sharing& sharing, RunServices& services,
               std::string name);

  /// Pays until everybody is paid, by whomever. False where the run was begun anew.
  bool payParts(ReportQueue& reports);
  /// Ends the run or waits until another one has. False where the run was begun anew.
  bool end(RunListener& listener, const TakeReport& told);

 private:
  enum class Look { Taken, Wait, AllDone, BegunAnew };

  Look takeOne(const std::string& parts, RunPart& taken);
  bool payPeriod(std::size_t period, ReportQueue& reports);
  void payPart(const SlipPeriod& period, const RunPart& part, ReportQueue& reports);
  /// False where the part has been taken over.
  bool prolong(const RunPart& part, PartState state);
  Date until() { return later(services_.leases.now(), sharing_.leaseSeconds); }

  const SharedPlan& shared_;
  const Sharing& sharing_;
  RunServices& services_;
  std::string name_;
  PartNumbers numbers_;
  PagePayer payer_;
  std::chrono::steady_clock::time_point prolonged_;
};

}  // namespace kt7::payroll
