#include "payroll/share/shared_plan.h"

#include <map>

#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "base/text.h"
#include "payroll/facts/slip_period.h"
#include "payroll/month/other_runs.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_names.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/retry/waiting.h"
#include "payroll/share/agreement.h"
#include "payroll/share/part_lease.h"
#include "payroll/work/month_end.h"

namespace kt7::payroll {

namespace {

constexpr std::chrono::milliseconds kLongestPause(300);

class Joining {
 public:
  /// `rejoins`: the process has been at work on this run already.
  Joining(const RunRequest& request, RunServices& services, RunListener& listener,
          const std::string& worker, bool rejoins)
      : request_(request),
        services_(services),
        listener_(listener),
        held_(services, worker, request.sharing->leaseSeconds),
        head_{runName(request.month, request.type), "", agreementOf(request), 0},
        begun_(rejoins) {}

  enum class Step { Joined, Paid, LookAgain };

  /// LookAgain where somebody else was quicker or is at it.
  Step attempt() {
    services_.catchUp();
    const auto head = services_.leases.head(head_.run);
    if (begun_) requireSameRun(head);
    if (!head) {
      services_.leases.makeHead(head_, held_.worker(), held_.until());
      return planAsFirst();
    }
    const bool underWay = signOfLife(*head, services_.leases).has_value();
    if (head->state == PartState::Done) {
      if (underWay) return join(*head);
      if (begun_ && isPlanned(*head) && services_.leases.countAllUndone(head_.run) == 0) {
        return Step::Paid;
      }
    } else if (underWay && head->worker != held_.worker()) {
      waiting_.on([&] { return whoHas(*head); },
                  [this](const std::string& text) { listener_.note(text); });
      return Step::LookAgain;
    }
    PartRow mine = *head;
    mine.part.to = head_.to;
    if (!services_.leases.take(mine, held_.worker(), held_.until())) return Step::LookAgain;
    return planAsFirst();
  }

  SharedPlan takePlan() { return std::move(*joined_); }

 private:
  /// Who slept while the month was paid otherwise must not pay it once more.
  void requireSameRun(const std::optional<PartRow>& head) {
    if (head && isAgreed(*head, head_.to)) return;
    throw RunSuperseded("while this process did not answer, " + request_.month.text() +
                        " was begun anew with another input or by another run: what it had not "
                        "paid yet is left to that one; run the month again for the whole register");
  }

  Step join(const PartRow& head) {
    if (!isAgreed(head, head_.to)) {
      throw refused("a shared run of " + request_.month.text() +
                    " with another input or type is under way: wait for its end");
    }
    joined_ = SharedPlan{head.part, head.worker,
                         planMonth(request_, services_, listener_, repeated_, Preparation::Done)};
    if (head.part.to != agreedPlan(head_.to, joined_->plan)) {
      throw refused("employee types or slip periods have changed since the shared run of " +
                    request_.month.text() +
                    " was planned: wait for its end and run the month again");
    }
    return Step::Joined;
  }

  static RunStopped refused(const std::string& reason) {
    return {RunStopped::Cause::Refused, {reason}};
  }

  /// Where there is nothing to be paid as things stand, nobody has to wait for this one to end.
  Step planAsFirst() {
    begun_ = true;
    held_.begin(head_);
    try {
      joined_ = planned();
      return Step::Joined;
    } catch (const ClaimLost&) {
      held_.wasLost();
      return Step::LookAgain;
    } catch (const RunStopped&) {
      services_.leases.mark(head_, held_.worker(), PartState::Done, services_.leases.now());
      throw;
    }
  }

  /// The head is kept alive on the way, so that nobody else begins with the same.
  SharedPlan planned() {
    endOtherRuns(request_, services_);
    SharedPlan shared{head_, held_.worker(), planMonth(request_, services_, listener_, repeated_)};
    shared.head.to = agreedPlan(head_.to, shared.plan);
    held_.renew();
    noteUntypedEmployees(shared.plan, services_, listener_);
    const std::vector<RunPart> parts = partsOf(shared);
    if (!services_.leases.lay(shared.head, held_.worker(), parts,
                              [this] { return held_.until(); })) {
      throw ClaimLost();
    }
    return shared;
  }

  /// The employees of every period in parts, each with numbers of its own for new slips. They do
  /// not depend on who is paid already, so that whoever takes a part over gives the same numbers.
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
      held_.renew();
      if (employees.empty()) return;
      parts.push_back({name, query.afterCode, employees.back().code, lastSequence});
      query.afterCode = employees.back().code;
      lastSequence += static_cast<int>(employees.size());
    }
  }

  const RunRequest& request_;
  RunServices& services_;
  RunListener& listener_;
  HeldPart held_;
  RunPart head_;  // as long as it has not been planned
  bool begun_;    // the run may have been paid, or changed, by others since this process began
  RunOutcome repeated_;  // of the planning
  Waiting waiting_;      // for who plans the month
  std::optional<SharedPlan> joined_;
};

}  // namespace

std::string SharedPlan::partsOf(std::size_t period) const {
  return partName(head.run, padded(static_cast<int>(period), 3));
}

RunPart SharedPlan::end() const { return {partName(head.run, "end"), "", "", 0}; }

std::optional<SharedPlan> joinRun(const RunRequest& request, RunServices& services,
                                  RunListener& listener, const std::string& worker, bool rejoins) {
  Joining joining(request, services, listener, worker, rejoins);
  RunOutcome joiningOnly;
  Recovery recovery(services, joiningOnly);
  Patience patience;
  for (;;) {
    try {
      const Joining::Step step = joining.attempt();
      if (step == Joining::Step::Paid) return std::nullopt;
      if (step == Joining::Step::Joined) return joining.takePlan();
      if (listener.wantsToStop()) throw RunInterrupted();
      pauseUpTo(kLongestPause);
    } catch (const Error& error) {
      if (!recovery.triesAgainAfter(failureOf(error), patience)) throw;
    } catch (const RunStopped& stopped) {
      if (!rejoins) throw;
      throw RunSuperseded(std::string("a part of the month is paid, the rest is not: ") +
                          stopped.what());
    }
  }
}

}  // namespace kt7::payroll
