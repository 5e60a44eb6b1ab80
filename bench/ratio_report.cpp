#include "ratio_report.h"

#include <algorithm>

namespace kt7::bench {

void RatioReport::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
      times_[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
    }
  }
  ConsoleReporter::ReportRuns(runs);
}

double RatioReport::median(const std::string& name) const {
  const auto found = times_.find(name);
  if (found == times_.end()) return 0;
  std::vector<double> times = found->second;
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

double RatioReport::ratio(const std::string& name, const std::string& base) const {
  const double whole = median(base);
  return whole > 0 ? median(name) / whole : 0;
}

}  // namespace kt7::bench
