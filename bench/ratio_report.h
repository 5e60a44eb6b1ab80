#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace kt7::bench {

/// The usual console report; keeps the median of every benchmark's repetitions.
class RatioReport : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  /// How many times the first benchmark took of the second; 0 when one of them did not run.
  double ratio(const std::string& name, const std::string& base) const;

 private:
  std::map<std::string, double> medians_;
};

}  // namespace kt7::bench
