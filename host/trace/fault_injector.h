#pragma once

#include <string>
#include <vector>

#include "host/trace/step.h"

namespace kt7::trace {

/// Counts steps, keeps their lines, and fails one of them on request, or it and all that follow: an
/// opening as a lost connection, any other as a failed statement.
class FaultInjector : public StepObserver {
 public:
  /// Before or after it took effect; or not at all, and nothing that follows reaches the database
  /// either, as on a lost connection; messages are still seen.
  enum class When { Before, After, FromThere };
  enum class As { FailedStatement, LostConnection };

  /// Fails the n-th step from now, counted from 1; 0 for none.
  void failAt(int step, When when, As as = As::FailedStatement);
  /// Steps that began since failAt, or since it was made; the failed one counts.
  int steps() const { return static_cast<int>(lines_.size()); }
  /// Whether the fault was reached.
  bool failed() const { return failed_; }
  /// Their lines, in order.
  const std::vector<std::string>& lines() const { return lines_; }

  void before(const Step& step) override;
  void after(const Step& step) override;

 private:
  void fail(const Step& step);

  std::vector<std::string> lines_;
  int failAt_ = 0;
  When when_ = When::Before;
  As as_ = As::FailedStatement;
  bool failed_ = false;
};

}  // namespace kt7::trace
