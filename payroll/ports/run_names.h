#pragma once

#include <string>
#include <utility>

#include <kt7/payroll/month.h>

/// Names of shared runs and of their parts: "2026-01 M1" and "2026-01 M1/000".
namespace kt7::payroll {

/// The run of that month and type; "" for all types. A "/" in the type is doubled, so that no run
/// has the name of another run's part.
std::string runName(const Month& month, const std::string& type);
/// `what` must begin with a digit or a letter.
std::string partName(const std::string& run, const std::string& what);
bool isPartName(const std::string& name);

/// The names of a run's parts lie in [first, second), byte for byte.
std::pair<std::string, std::string> partNames(const std::string& run);
/// The same for the runs of a month, with the names of their parts.
std::pair<std::string, std::string> runNames(const Month& month);

}  // namespace kt7::payroll
