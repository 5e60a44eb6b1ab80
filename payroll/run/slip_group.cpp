#include "payroll/run/slip_group.h"

#include <algorithm>

namespace kt7::payroll {

namespace {

constexpr std::int16_t kPosted = 1;

}  // namespace

std::string causeOf(const Error& error) {
  return std::string(kindName(error.kind())) + " error " + std::to_string(error.number()) + ": " +
         error.what();
}

bool SlipGroupWriter::write(const std::vector<SlipChange>& changes) {
  if (changes.empty()) return true;
  const Group all(changes);
  const auto problem = writeTogether(all);
  if (!problem) {
    tell(all);
    return true;
  }
  if (changes.size() == 1) {
    tellFailure(changes.front(), *problem);
    return false;
  }
  bool allHold = true;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const auto ownProblem = writeTogether(all.subspan(i, 1));
    if (ownProblem) {
      tellFailure(changes[i], *ownProblem);
      allHold = false;
    } else {
      tell(all.subspan(i, 1));
    }
  }
  return allHold;
}

std::optional<std::string> SlipGroupWriter::writeTogether(Group group) {
  Patience patience;
  bool unknown = false;  // whether an attempt took effect
  for (bool again = false;; again = true) {
    bool begun = false;
    try {
      if (unknown && standsAlready(group)) return std::nullopt;
      unknown = false;
      services_.book.begin();
      begun = true;
      for (const SlipChange& change : group) writeOne(change, again);
      services_.book.commit();
      return std::nullopt;
    } catch (const Error& error) {
      if (begun) services_.book.rollback();
      const Failure failure = failureOf(error);
      unknown = unknown || failure == Failure::OutcomeUnknown;
      if (!recovery_.triesAgainAfter(failure, patience)) {
        if (!begun || unknown || failure == Failure::Lost) throw;
        return causeOf(error);
      }
    } catch (...) {
      services_.book.rollback();
      throw;
    }
  }
}

bool SlipGroupWriter::standsAlready(Group group) {
  return std::all_of(group.begin(), group.end(),
                     [this](const SlipChange& change) { return standsAlready(change); });
}

/// Looks for everything that the unit was to change, as a slip of an earlier run may be the same.
bool SlipGroupWriter::standsAlready(const SlipChange& change) {
  for (const KnownSlip& gone : change.removals) {
    const auto standing = services_.company.slips({gone.employee}, {gone.payDate, gone.payDate});
    if (std::any_of(standing.begin(), standing.end(),
                    [&](const KnownSlip& slip) { return slip.number == gone.number; })) {
      return false;
    }
  }
  if (change.slip && !services_.book.stands(*change.slip)) return false;
  return !change.history || historyStepNow(*change.history) == HistoryStep::None;
}

HistoryStep SlipGroupWriter::historyStepNow(const HistoryChange& history) {
  return historyStep(history.employee, services_.company.latestSalaries({history.employee.code}));
}

void SlipGroupWriter::writeOne(const SlipChange& change, bool again) {
  for (const KnownSlip& slip : change.removals) {
    services_.book.remove(slip);
    attendance_.withdraw(slip);
  }
  if (!change.slip) return;
  services_.book.save(*change.slip);
  services_.hr.SumAmass2TR(change.slip->employee, kCheckGroup, "", change.slip->number,
                           services_.dataObj, kPosted);
  attendance_.record(*change.slip);
  if (change.history) {
    // Whoever was in the way may have written the history's row too.
    const HistoryStep step = again ? historyStepNow(*change.history) : change.history->step;
    writeHistory(step, change.history->employee, change.history->from, services_);
  }
}

void SlipGroupWriter::tell(Group group) {
  for (const SlipChange& change : group) {
    for (const KnownSlip& slip : change.removals) {
      ++report_.outcome.removed;
      report_.note("slip " + slip.number + " of " + slip.employee + " (" + slip.type + " on " +
                   slip.payDate.isoDateText() + ") is no longer due: removed");
    }
    if (!change.slip) continue;
    ++report_.outcome.paid;
    report_.paid(*change.slip);
  }
}

void SlipGroupWriter::tellFailure(const SlipChange& change, const std::string& cause) {
  if (change.slip) {
    report_.countFailed(change.slip->employee, change.slip->payDate, cause);
  } else {
    const KnownSlip& slip = change.removals.front();
    report_.countFailed(slip.employee, slip.payDate,
                        "slip " + slip.number + " could not be removed: " + cause);
  }
}

}  // namespace kt7::payroll
