#pragma once

#include <iosfwd>
#include <string>

#include <kt7/contract/platform.h>
#include "fronts/calls/json_values.h"

namespace kt7::cli {

/// What is known of one employee on a day, section by section: profile, rates and hours, service,
/// fund, position history, leave year, and the balances of the year up to that day. A value that
/// was not entered is null. A failed command (std::runtime_error) for an unknown employee. The code
/// holds no quotes.
Json employeeSheet(Platform& platform, DataObj& dataObj, const std::string& code, Date on);

/// The sheet for people, its tables in lines of that many cells.
void writeEmployeeSheet(const Json& sheet, std::ostream& out, int width);

}  // namespace kt7::cli
