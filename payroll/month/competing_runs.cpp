#include "payroll/month/competing_runs.h"

#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_request.h>
#include "payroll/ports/lease_length.h"
#include "payroll/ports/run_names.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

namespace {

constexpr const char* kNobody = "given up";

/// False if another worker took the head.
bool giveUp(const PartRow& head, RunLeases& leases) {
  PartRow given = head;
  given.part.fingerprint.clear();
  const Date now = leases.now();
  if (!leases.take(given, kNobody, now)) return false;
  return leases.publishParts(given.part, kNobody, {}, [now] { return now; });
}

}  // namespace

std::optional<PartRow> activeLease(const PartRow& head, RunLeases& leases) {
  const Date now = leases.now();
  std::optional<PartRow> latest = head;  // somebody plans
  if (head.state == PartState::Done) {
    if (leases.countAllUndone(head.part.name) == 0) return std::nullopt;
    latest = leases.latestPart(head.part.name, now);
  }
  return latest && isHeld(latest->until, now) ? latest : std::nullopt;
}

std::string leaseHolder(const PartRow& row) {
  // The part after the last blank tells the workers of one process apart.
  const std::string process = row.worker.substr(0, row.worker.rfind(' '));
  return (process.empty() ? "a process that is about to begin" : process) + ", who has until " +
         row.until.isoDateTimeText() + " (UTC)";
}

std::string partHolder(const std::string& run, const std::string& parts, RunLeases& leases) {
  for (const PartRow& row : leases.parts(run)) {
    if (row.part.name == parts && row.state == PartState::Taken) return leaseHolder(row);
  }
  return {};
}

void endCompetingRuns(const RunRequest& request, RunServices& services) {
  RunLeases& leases = services.leases;
  const std::string all = runName(request.month, "");
  const std::string own = runName(request.month, request.type);
  services.catchUp();
  for (const PartRow& head : leases.heads(request.month)) {
    const std::string& other = head.part.name;
    if (other == own ? request.sharing.has_value() : other != all && own != all) continue;
    const bool ended = head.state == PartState::Done && leases.countAllUndone(other) == 0;
    const auto working = activeLease(head, leases);
    if (ended || (!working && giveUp(head, leases))) continue;
    throw SharedRunUnderWay(other, working ? leaseHolder(*working) : "");
  }
}

}  // namespace kt7::payroll
