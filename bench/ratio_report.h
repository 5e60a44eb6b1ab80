#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace kt7::bench {

/// The usual console report; keeps the time of every repetition.
class RatioReport : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  /// How many times the first benchmark took of the second, medians of the repetitions; 0 when
  /// one of them did not run.
  double ratio(const std::string& name, const std::string& base) const;

 private:
  double median(const std::string& name) const;
  std::map<std::string, std::vector<double>> times_;
};

}  // namespace kt7::bench
