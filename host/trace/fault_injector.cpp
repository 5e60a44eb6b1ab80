#include "host/trace/fault_injector.h"

#include <kt7/error.h>

namespace kt7::trace {

void FaultInjector::failAt(int step, When when, As as) {
  lines_.clear();
  failAt_ = step;
  when_ = when;
  as_ = as;
  failed_ = false;
}

void FaultInjector::before(const Step& step) {
  lines_.push_back(lineOf(step));
  const bool lost = when_ == When::FromThere && failAt_ > 0 && steps() >= failAt_;
  if (lost ? step.kind != StepKind::Message : when_ == When::Before && steps() == failAt_) {
    fail(step);
  }
}

void FaultInjector::after(const Step& step) {
  if (when_ == When::After && steps() == failAt_) fail(step);
}

void FaultInjector::fail(const Step& step) {
  failed_ = true;
  const std::string text =
      "injected fault at step " + std::to_string(failAt_) + ": " + lines_.back();
  if (as_ == As::LostConnection) raiseConnectionFailed(text, {std::string(step.sql), 0, "08006"});
  if (step.kind == StepKind::Open) raiseConnectionFailed(text);
  raiseStatementFailed(text);
}

}  // namespace kt7::trace
