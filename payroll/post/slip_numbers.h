#pragma once

#include <functional>
#include <span>
#include <vector>

#include "payroll/ports/company.h"
#include "payroll/ports/page.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"

namespace kt7::payroll {

/// Who gives new slips their numbers.
class SlipNumbers {
 public:
  virtual ~SlipNumbers() = default;
  /// Numbers the slips of the page that have none; called once a page, and again where it failed.
  virtual void give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) = 0;
  /// Numbers once more what `give` numbered, behind all that stand: another run that pays on the
  /// same date was quicker. The changes are of one page.
  virtual void replace(std::span<SlipChange> changes, RunServices& services) = 0;
};

using SequenceOf = std::function<int(const SlipChange& change)>;

/// Gives the slips that have no number one of that sequence.
void numberNew(std::span<SlipChange> changes, const SequenceOf& sequenceOf);
/// The same to those that numberNew gave one.
void numberAnew(std::span<SlipChange> changes, const SequenceOf& sequenceOf);
/// The sequence of the last slip that stands on the pay date, 0 for none.
int lastSequenceOn(Date payDate, Company& company);

}  // namespace kt7::payroll
