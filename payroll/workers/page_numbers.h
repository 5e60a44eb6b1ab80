#pragma once

#include <condition_variable>
#include <map>
#include <mutex>
#include <stdexcept>

#include "payroll/post/slip_numbers.h"

namespace kt7::payroll {

/// Raised in waiting workers when another one has stopped the run.
class RunAbandoned : public std::runtime_error {
 public:
  RunAbandoned() : std::runtime_error("the run was given up") {}
};

/// Numbers the new slips of one process in page order, whichever worker makes its page first.
class PageNumbers : public SlipNumbers {
 public:
  /// Waits until all earlier pages are numbered. RunAbandoned.
  void give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) override;
  void replace(std::span<SlipChange> changes, RunServices& services) override;
  /// A page without slips to number.
  void skipPage();
  /// Ends all waiting.
  void stop();

 private:
  int& lastSequence(Date payDate, RunServices& services);
  void nextTurn();

  std::mutex turn_;
  std::condition_variable changed_;
  std::size_t numbered_ = 0;  // pages
  bool stopped_ = false;

  std::mutex numbering_;                      // held while numbers are read and given
  std::map<std::int32_t, int> lastSequence_;  // by pay date
};

}  // namespace kt7::payroll
