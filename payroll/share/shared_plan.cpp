#include "payroll/share/shared_plan.h"

#include <map>
#include <tuple>

#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "base/text.h"
#include "payroll/facts/slip_period.h"
#include "payroll/month/competing_runs.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_names.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/retry/wait_notice.h"
#include "payroll/share/part_lease.h"
#include "payroll/share/run_fingerprint.h"
#include "payroll/workers/month_end.h"

namespace kt7::payroll {

namespace {

constexpr std::chrono::milliseconds kLongestPause(300);

class Joining {
 public:
  /// `rejoins`: the process has worked on this run already.
  Joining(const RunRequest& request, RunServices& services, RunListener& listener,
          const std::string& worker, bool rejoins)
      : request_(request),
        services_(services),
        listener_(listener),
        lease_(services, worker, request.sharing->leaseSeconds),
        head_{.name = runName(request.month, request.type),
              .fingerprint = requestFingerprint(request)},
        othersMayHavePaid_(rejoins) {}

  enum class Step { Joined, Paid, LookAgain };

  /// LookAgain if another worker is planning the month.
  Step attempt() {
    services_.catchUp();
    const auto head = services_.leases.head(head_.name);
    if (othersMayHavePaid_) requireSameRun(head);
    if (!head) {
      services_.leases.makeHead(head_, lease_.worker(), lease_.until());
      return planAsFirst();
    }
    const bool underWay = activeLease(*head, services_.leases).has_value();
    if (head->state == PartState::Done) {
      if (underWay) return join(*head);
      if (othersMayHavePaid_ && isPlanned(*head) &&
          services_.leases.countAllUndone(head_.name) == 0) {
        return Step::Paid;
      }
    } else if (underWay && head->worker != lease_.worker()) {
      waiting_.stillWaiting([&] { return leaseHolder(*head); },
                            [this](const std::string& text) { listener_.note(text); });
      return Step::LookAgain;
    }
    PartRow mine = *head;
    mine.part.fingerprint = head_.fingerprint;
    if (!services_.leases.take(mine, lease_.worker(), lease_.until())) return Step::LookAgain;
    return planAsFirst();
  }

  SharedPlan takePlan() { return std::move(*joined_); }

 private:
  /// A process that slept must not pay a month that has been begun with another request.
  void requireSameRun(const std::optional<PartRow>& head) {
    if (head && isOfRequest(*head, head_.fingerprint)) return;
    throw RunSuperseded("while this process did not answer, " + request_.month.text() +
                        " was begun anew with another input or by another run: what it had not "
                        "paid yet is left to that one; run the month again for the whole register");
  }

  Step join(const PartRow& head) {
    if (!isOfRequest(head, head_.fingerprint)) {
      throw refused("a shared run of " + request_.month.text() +
                    " with another input or type is under way: wait for its end");
    }
    joined_ = SharedPlan{head.part, head.worker,
                         planMonth(request_, services_, listener_, repeated_, Preparation::Done)};
    if (head.part.fingerprint != runFingerprint(head_.fingerprint, joined_->plan)) {
      throw refused("employee types or slip periods have changed since the shared run of " +
                    request_.month.text() +
                    " was planned: wait for its end and run the month again");
    }
    return Step::Joined;
  }

  static RunStopped refused(const std::string& reason) {
    return {RunStopped::Cause::Refused, {reason}};
  }

  /// If the month cannot be paid, the head is marked as done, so that no process waits for it.
  Step planAsFirst() {
    othersMayHavePaid_ = true;
    lease_.begin(head_);
    try {
      joined_ = planned();
      return Step::Joined;
    } catch (const ClaimLost&) {
      lease_.wasLost();
      return Step::LookAgain;
    } catch (const RunStopped&) {
      // If another worker took the head meanwhile, it will find the same reason.
      std::ignore =
          services_.leases.mark(head_, lease_.worker(), PartState::Done, services_.leases.now());
      throw;
    }
  }

  /// Renews the lease on the head on the way, so that no other worker plans the same.
  SharedPlan planned() {
    endCompetingRuns(request_, services_);
    SharedPlan shared{head_, lease_.worker(), planMonth(request_, services_, listener_, repeated_)};
    shared.head.fingerprint = runFingerprint(head_.fingerprint, shared.plan);
    lease_.renew();
    noteUntypedEmployees(shared.plan, services_, listener_);
    const std::vector<RunPart> parts = partsOf(shared);
    if (!services_.leases.publishParts(shared.head, lease_.worker(), parts,
                                       [this] { return lease_.until(); })) {
      throw ClaimLost();
    }
    return shared;
  }

  /// Divides the employees of every period into parts, each with a range of slip numbers. The
  /// ranges do not depend on who is paid already: whoever takes over a part gives the same numbers.
  std::vector<RunPart> partsOf(const SharedPlan& shared) {
    std::vector<RunPart> parts;
    std::map<std::int32_t, int> lastSequence;  // by pay date
    for (std::size_t i = 0; i < shared.plan.periods.size(); ++i) {
      const SlipPeriod& period = shared.plan.periods[i];
      if (period.frozen) continue;
      auto known = lastSequence.find(period.payDate.dayNumber());
      if (known == lastSequence.end()) {
        const int last = lastSequenceOn(period.payDate, services_.company);
        known = lastSequence.emplace(period.payDate.dayNumber(), last).first;
      }
      append(parts, shared.partsOf(i), period, known->second);
    }
    parts.push_back(shared.end());
    return parts;
  }

  void append(std::vector<RunPart>& parts, const std::string& name, const SlipPeriod& period,
              int& lastSequence) {
    EmployeeQuery query{period.type, period.salary, "", request_.sharing->employees};
    for (;;) {
      const auto employees = services_.company.employees(query);
      lease_.renew();
      if (employees.empty()) return;
      parts.push_back({.name = name,
                       .afterCode = query.afterCode,
                       .lastCode = employees.back().code,
                       .sequenceBefore = lastSequence});
      query.afterCode = employees.back().code;
      lastSequence += static_cast<int>(employees.size());
    }
  }

  const RunRequest& request_;
  RunServices& services_;
  RunListener& listener_;
  PartLease lease_;
  RunPart head_;            // with the fingerprint of the request
  bool othersMayHavePaid_;  // since this process began the run
  RunOutcome repeated_;     // while planning
  WaitNotice waiting_;      // for the worker that plans the month
  std::optional<SharedPlan> joined_;
};

}  // namespace

std::string SharedPlan::partsOf(std::size_t period) const {
  return partName(head.name, padded(static_cast<int>(period), 3));
}

RunPart SharedPlan::end() const { return {.name = partName(head.name, "end")}; }

std::optional<SharedPlan> joinRun(const RunRequest& request, RunServices& services,
                                  RunListener& listener, const std::string& worker, bool rejoins) {
  Joining joining(request, services, listener, worker, rejoins);
  RunOutcome joiningOnly;
  Recovery recovery(services, joiningOnly);
  RetryBudget budget;
  for (;;) {
    try {
      const Joining::Step step = joining.attempt();
      if (step == Joining::Step::Paid) return std::nullopt;
      if (step == Joining::Step::Joined) return joining.takePlan();
      if (listener.wantsToStop()) throw RunInterrupted();
      pauseUpTo(kLongestPause);
    } catch (const Error& error) {
      if (!recovery.prepareRetry(failureOf(error), budget)) throw;
    } catch (const RunStopped& stopped) {
      if (!rejoins) throw;
      throw RunSuperseded(std::string("a part of the month is paid, the rest is not: ") +
                          stopped.what());
    }
  }
}

}  // namespace kt7::payroll
