#include "payroll/run/slip_group.h"

#include "base/error.h"

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

void SlipGroupWriter::failed(const std::string& employee, Date payDate, const std::string& cause) {
  ++outcome_.failed;
  listener_.failed(employee, payDate, cause);
}

std::optional<std::string> SlipGroupWriter::writeTogether(Group group) {
  services_.book.begin();
  try {
    for (const SlipChange& change : group) writeOne(change);
    services_.book.commit();
    return std::nullopt;
  } catch (const Error& error) {
    services_.book.rollback();
    return causeOf(error);
  } catch (...) {
    services_.book.rollback();
    throw;
  }
}

void SlipGroupWriter::writeOne(const SlipChange& change) {
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
    const HistoryChange& history = *change.history;
    writeHistory(history.step, history.employee, history.from, services_);
  }
}

void SlipGroupWriter::tell(Group group) {
  for (const SlipChange& change : group) {
    for (const KnownSlip& slip : change.removals) {
      ++outcome_.removed;
      listener_.note("slip " + slip.number + " of " + slip.employee + " (" + slip.type + " on " +
                     slip.payDate.isoDateText() + ") is no longer due: removed");
    }
    if (!change.slip) continue;
    ++outcome_.paid;
    listener_.paid(*change.slip);
  }
}

void SlipGroupWriter::tellFailure(const SlipChange& change, const std::string& cause) {
  if (change.slip) {
    failed(change.slip->employee, change.slip->payDate, cause);
  } else {
    const KnownSlip& slip = change.removals.front();
    failed(slip.employee, slip.payDate, "slip " + slip.number + " could not be removed: " + cause);
  }
}

}  // namespace kt7::payroll
