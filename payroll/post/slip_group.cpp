#include "payroll/post/slip_group.h"

#include <algorithm>

#include "payroll/facts/slip_number.h"
#include "payroll/ports/company.h"
#include "payroll/ports/slip_book.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/slip_numbers.h"

namespace kt7::payroll {

namespace {

constexpr std::int16_t kPosted = 1;

}  // namespace

bool SlipGroupWriter::write(std::vector<SlipChange> changes) {
  if (changes.empty()) return true;
  const Group all(changes);
  const auto problem = writeTogether(all);
  if (!problem) {
    tell(all);
    return true;
  }
  if (changes.size() == 1) {
    tellProblem(changes.front(), *problem);
    return false;
  }
  bool allHold = true;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const auto ownProblem = writeTogether(all.subspan(i, 1));
    if (ownProblem) {
      tellProblem(changes[i], *ownProblem);
      allHold = false;
    } else {
      tell(all.subspan(i, 1));
    }
  }
  return allHold;
}

std::optional<SlipGroupWriter::Problem> SlipGroupWriter::writeTogether(Group group) {
  RetryBudget budget;
  bool unknown = false;  // an attempt may have been committed
  bool taken = false;    // a slip number was in use already
  for (bool again = false;; again = true) {
    bool begun = false;
    try {
      if (unknown && standsAlready(group)) return std::nullopt;
      unknown = false;
      if (again && claim_ != nullptr) claim_->heartbeat();
      if (taken) numbers_.replace(group, services_);
      taken = false;
      services_.book.begin();
      begun = true;
      writeAll(group, again);
      services_.book.commit();
      return std::nullopt;
    } catch (const Error& error) {
      if (begun) services_.book.rollback();
      const Failure failure = failureOf(error);
      unknown = unknown || failure == Failure::OutcomeUnknown;
      taken = taken || failure == Failure::Duplicate;
      if (!recovery_.prepareRetry(failure, budget)) {
        if (!begun || unknown || isLoss(failure)) throw;
        return Problem{causeOf(error)};
      }
    } catch (const EmployeeChanged& changed) {
      services_.book.rollback();
      return Problem{changed.what(), true};
    } catch (...) {
      if (begun) services_.book.rollback();
      throw;
    }
  }
}

bool SlipGroupWriter::standsAlready(Group group) {
  return std::all_of(group.begin(), group.end(),
                     [this](const SlipChange& change) { return standsAlready(change); });
}

/// Checks removals and history too: an earlier run may have written an equal slip.
bool SlipGroupWriter::standsAlready(const SlipChange& change) {
  for (const KnownSlip& gone : change.removals) {
    const auto standing = services_.company.slips({gone.employee}, {gone.payDate, gone.payDate});
    if (std::any_of(standing.begin(), standing.end(),
                    [&](const KnownSlip& slip) { return slip.number == gone.number; })) {
      return false;
    }
  }
  if (change.slip && !services_.book.stands(*change.slip)) return false;
  if (!change.history) return true;
  const Employee& employee = change.history->employee;
  return historyStep(employee, services_.company.latestSalaries({employee.code})) ==
         HistoryStep::None;
}

void SlipGroupWriter::writeAll(Group group, bool again) {
  if (claim_ != nullptr) claim_->confirmInTransaction();
  // Another worker may have written the histories since they were read.
  if (again || claim_ != nullptr) readHistoriesNow(group);
  for (const SlipChange& change : group) writeOne(change);
}

void SlipGroupWriter::readHistoriesNow(Group group) {
  std::vector<std::string> codes;
  for (const SlipChange& change : group) {
    if (change.history) codes.push_back(change.history->employee.code);
  }
  const auto latest = services_.company.latestSalaries(codes);
  for (SlipChange& change : group) {
    if (change.history) change.history->step = historyStep(change.history->employee, latest);
  }
}

void SlipGroupWriter::writeOne(const SlipChange& change) {
  for (const KnownSlip& slip : change.removals) {
    services_.book.remove(slip);
    attendance_.withdraw(slip);
  }
  if (!change.slip) return;
  if (change.slip->number.empty()) {
    raiseStatementFailed("the slip numbers of " + change.slip->payDate.isoDateText() +
                         " are used up: the last one is " +
                         slipNumber(change.slip->payDate, kHighestSequence) +
                         "; give that slip another number and run the month again");
  }
  services_.book.save(*change.slip);
  services_.hr.SumAmass2TR(change.slip->employee, kCheckGroup, "", change.slip->number,
                           services_.dataObj, kPosted);
  attendance_.record(*change.slip);
  if (!change.history) return;
  writeHistory(change.history->step, change.history->employee, change.history->from, services_);
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

/// A changed employee is only noted: another page may have paid the new code. Who has no slip in
/// the end is reported with the end of the month.
void SlipGroupWriter::tellProblem(const SlipChange& change, const Problem& problem) {
  const std::string& cause = problem.cause;
  if (problem.changed) {
    report_.note(cause);
  } else if (change.slip) {
    report_.countFailed(change.slip->employee, change.slip->payDate, cause);
  } else {
    const KnownSlip& slip = change.removals.front();
    report_.countFailed(slip.employee, slip.payDate,
                        "slip " + slip.number + " could not be removed: " + cause);
  }
}

}  // namespace kt7::payroll
