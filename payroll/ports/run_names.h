#pragma once

#include <string>
#include <utility>

#include <kt7/payroll/month.h>

/// What shared runs and their parts are called: "2026-01 M1" and "2026-01 M1/000".
namespace kt7::payroll {

/// Of the run of that month and type, "" for all types. A "/" in the type is doubled, so that no
/// run is called like a part of another.
std::string runName(const Month& month, const std::string& type);
/// `what` begins with a digit or a letter.
std::string partName(const std::string& run, const std::string& what);
bool isPartName(const std::string& name);

/// The names of a run's parts lie in [first, second).
std::pair<std::string, std::string> partNames(const std::string& run);
/// The same for the runs of a month; the names of parts may lie between them.
std::pair<std::string, std::string> runNames(const Month& month);

}  // namespace kt7::payroll
