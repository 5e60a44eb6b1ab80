#include "payroll/month/other_runs.h"

#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_names.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

namespace {

constexpr const char* kNobody = "given up";

/// False where somebody was quicker.
bool giveUp(const PartRow& head, RunLeases& leases) {
  PartRow given = head;
  given.part.to.clear();
  const Date now = leases.now();
  if (!leases.take(given, kNobody, now)) return false;
  return leases.lay(given.part, kNobody, {}, [now] { return now; });
}

}  // namespace

bool isUnderWay(const PartRow& head, RunLeases& leases) {
  const Date now = leases.now();
  if (head.state != PartState::Done) return now < head.until;  // somebody plans
  return leases.countAllUndone(head.part.run) > 0 && now < leases.lastUntil(head.part.run);
}

void endOtherRuns(const RunRequest& request, RunServices& services) {
  RunLeases& leases = services.leases;
  const std::string all = runName(request.month, "");
  const std::string own = runName(request.month, request.type);
  services.catchUp();
  for (const PartRow& head : leases.heads(request.month)) {
    const std::string& other = head.part.run;
    if (other == own ? request.sharing.has_value() : other != all && own != all) continue;
    const bool ended = head.state == PartState::Done && leases.countAllUndone(other) == 0;
    if (ended || (!isUnderWay(head, leases) && giveUp(head, leases))) continue;
    throw RunStopped(RunStopped::Cause::Refused,
                     {"a shared run of " + other +
                      " is under way: wait for its end, or take part in it with --share"});
  }
}

}  // namespace kt7::payroll
