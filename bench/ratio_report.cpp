#include "ratio_report.h"

namespace kt7::bench {

void RatioReport::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.aggregate_name != "median") continue;
    medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
  }
  ConsoleReporter::ReportRuns(runs);
}

double RatioReport::ratio(const std::string& name, const std::string& base) const {
  const auto found = medians_.find(name);
  const auto whole = medians_.find(base);
  if (found == medians_.end() || whole == medians_.end()) return 0;
  return found->second / whole->second;
}

bool initialize(int argc, char** argv) {
  static std::string takeTurns = "--benchmark_enable_random_interleaving=true";
  static std::string mediansOnly = "--benchmark_report_aggregates_only=true";
  std::vector<char*> arguments{argv[0], takeTurns.data(), mediansOnly.data()};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  benchmark::Initialize(&count, arguments.data());
  return !benchmark::ReportUnrecognizedArguments(count, arguments.data());
}

}  // namespace kt7::bench
