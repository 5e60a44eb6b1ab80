#pragma once

#include <functional>
#include <span>
#include <vector>

#include "payroll/ports/company.h"
#include "payroll/ports/page.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"

namespace kt7::payroll {

/// Gives new slips their numbers.
class SlipNumbers {
 public:
  virtual ~SlipNumbers() = default;
  /// Numbers the slips of the page that have none. Called once a page, again if it failed.
  virtual void give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) = 0;
  /// Gives the slips that `give` numbered new numbers after all existing ones, because another run
  /// on the same pay date took theirs. The changes are of one page.
  virtual void replace(std::span<SlipChange> changes, RunServices& services) = 0;
};

using SequenceOf = std::function<int(const SlipChange& change)>;

/// Numbers the slips that have none by `sequenceOf`.
void numberNew(std::span<SlipChange> changes, const SequenceOf& sequenceOf);
/// Numbers again the slips that numberNew numbered.
void numberAnew(std::span<SlipChange> changes, const SequenceOf& sequenceOf);
/// The highest sequence in the slip numbers of the pay date; 0 for none.
int lastSequenceOn(Date payDate, Company& company);

}  // namespace kt7::payroll
