#include "payroll/workers/told_slips.h"

#include <utility>

#include "payroll/facts/slip_number.h"

namespace kt7::payroll {

RunOutcome ToldSlips::tell(const Report& report) {
  report.tellTo(*this);
  RunOutcome outcome = report.outcome;
  outcome.paid -= std::exchange(again_, 0);
  return outcome;
}

void ToldSlips::paid(const Slip& slip) {
  if (isNew(slip)) {
    listener_.paid(slip);
  } else {
    ++again_;
  }
}

void ToldSlips::standing(const Slip& slip) {
  if (isNew(slip)) listener_.standing(slip);
}

/// Slips of other programs have numbers of their own making, and are told as they come.
bool ToldSlips::isNew(const Slip& slip) {
  const auto sequence = static_cast<std::size_t>(slipSequence(slip.number, slip.payDate));
  if (sequence == 0) return true;
  std::vector<bool>& told = numbers_[slip.payDate.dayNumber()];
  if (told.size() <= sequence) told.resize(sequence + 1);
  if (told[sequence]) {
    listener_.note("slip " + slip.number + " of " + slip.employee +
                   " stands in the register already, where it counts: the code was changed, or the "
                   "slip was taken over, while the month was paid");
    return false;
  }
  told[sequence] = true;
  return true;
}

}  // namespace kt7::payroll
