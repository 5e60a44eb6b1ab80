#pragma once

#include <string>

#include <kt7/date.h>

/// What every front says of a pay run in the same words.
namespace kt7::cli {

/// "E0001 was not paid on 2026-01-31: no sign date"
std::string notPaid(const std::string& employee, Date payDate, const std::string& cause);
/// "1 slip", "2 slips"
std::string counted(int count, const std::string& what);

}  // namespace kt7::cli
