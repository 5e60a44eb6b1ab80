#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace kt7::bench {

/// The usual console report; keeps the medians of every benchmark's repetitions.
class RatioReport : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  /// How many times the first benchmark took of the second; 0 when one of them did not run.
  /// Processor time, the system's included: other programs do not count.
  double ratio(const std::string& name, const std::string& base) const;

 private:
  std::map<std::string, double> medians_;
};

/// Takes the options of the command line: repetitions take turns, so that a busy minute of the
/// machine hits all of them, and only their medians are shown. False for one that is not known.
bool initialize(int argc, char** argv);

}  // namespace kt7::bench
