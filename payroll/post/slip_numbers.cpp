#include "payroll/post/slip_numbers.h"

#include "payroll/facts/slip_number.h"
#include "payroll/ports/company.h"
#include "payroll/post/slip_change.h"

namespace kt7::payroll {

void numberNew(std::span<SlipChange> changes, const SequenceOf& sequenceOf) {
  for (SlipChange& change : changes) {
    if (!change.slip || !change.slip->number.empty()) continue;
    change.slip->number = slipNumber(change.slip->payDate, sequenceOf(change));
    change.newNumber = true;
  }
}

void numberAnew(std::span<SlipChange> changes, const SequenceOf& sequenceOf) {
  for (SlipChange& change : changes) {
    if (!change.newNumber) continue;
    change.slip->number = slipNumber(change.slip->payDate, sequenceOf(change));
  }
}

int lastSequenceOn(Date payDate, Company& company) {
  return slipSequence(company.lastSlipNumber(payDate), payDate);
}

}  // namespace kt7::payroll
