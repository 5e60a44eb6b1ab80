#pragma once

#include <string_view>

namespace kt7::calendar {

/// Whether a weekly pattern such as "H;;;;;;H" marks a weekday (Sunday 0 to Saturday 6): its entry
/// is exactly "H" or "h". Weekdays past the end of the pattern are not marked.
bool marksWeekday(std::string_view pattern, int weekday);

}  // namespace kt7::calendar
