#include "ratio_report.h"

namespace kt7::bench {

void RatioReport::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    // Processor time, the system's included: neither side waits, and other programs do not count.
    if (run.aggregate_name == "median") {
      medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
  }
  ConsoleReporter::ReportRuns(runs);
}

double RatioReport::ratio(const std::string& name, const std::string& base) const {
  const auto found = medians_.find(name);
  const auto whole = medians_.find(base);
  if (found == medians_.end() || whole == medians_.end()) return 0;
  return found->second / whole->second;
}

}  // namespace kt7::bench
