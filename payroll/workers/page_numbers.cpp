#include "payroll/workers/page_numbers.h"

#include <algorithm>

#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"

namespace kt7::payroll {

void PageNumbers::give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) {
  {
    std::unique_lock lock(turn_);
    changed_.wait(lock, [&] { return stopped_ || numbered_ == page.index; });
    if (stopped_) throw RunAbandoned();
  }
  {
    const std::lock_guard numbering(numbering_);
    numberNew(changes, [&](const SlipChange& change) {
      return ++lastSequence(change.slip->payDate, services);
    });
  }
  nextTurn();
}

void PageNumbers::skipPage() { nextTurn(); }

void PageNumbers::nextTurn() {
  const std::lock_guard lock(turn_);
  ++numbered_;
  changed_.notify_all();
}

void PageNumbers::stop() {
  const std::lock_guard lock(turn_);
  stopped_ = true;
  changed_.notify_all();
}

/// Numbers after those in the database and after those given to other workers of this process.
void PageNumbers::replace(std::span<SlipChange> changes, RunServices& services) {
  const std::lock_guard numbering(numbering_);
  bool looked = false;
  numberAnew(changes, [&](const SlipChange& change) {
    const Date payDate = change.slip->payDate;
    int& last = lastSequence(payDate, services);
    if (!looked) last = std::max(last, lastSequenceOn(payDate, services.company));
    looked = true;
    return ++last;
  });
}

int& PageNumbers::lastSequence(Date payDate, RunServices& services) {
  auto known = lastSequence_.find(payDate.dayNumber());
  if (known == lastSequence_.end()) {
    const int last = lastSequenceOn(payDate, services.company);
    known = lastSequence_.emplace(payDate.dayNumber(), last).first;
  }
  return known->second;
}

}  // namespace kt7::payroll
