#pragma once

#include "fronts/calls/json_values.h"
#include "host/trace/step.h"

namespace kt7::cli {

/// The steps of a session's calls as JSON, in the order in which they were tried.
class TraceLog : public trace::StepObserver {
 public:
  void before(const trace::Step& step) override;
  void after(const trace::Step&) override {}

  /// The steps since the last taking.
  Json take();

 private:
  Json steps_ = Json::array();
};

}  // namespace kt7::cli
