#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace kt7::bench {

/// The usual console report; keeps the medians of every benchmark's repetitions.
class RatioReport : public benchmark::ConsoleReporter {
 public:
  /// Processor time, the system's included, where neither side waits: other programs do not count.
  /// Wall time where a server does the work.
  enum class Clock { Processor, Wall };

  void ReportRuns(const std::vector<Run>& runs) override;

  /// How many times the first benchmark took of the second; 0 when one of them did not run.
  double ratio(const std::string& name, const std::string& base,
               Clock clock = Clock::Processor) const;

 private:
  std::map<std::string, double> processor_;
  std::map<std::string, double> wall_;
};

/// Takes the options of the command line: repetitions take turns, so that a busy minute of the
/// machine hits all of them, and only their medians are shown. False for one that is not known.
bool initialize(int argc, char** argv);

}  // namespace kt7::bench
