#pragma once

#include <ctime>

namespace kt7::roles {

/// The calendar time of the machine's time zone.
std::tm localCalendarTime(std::time_t seconds);

}  // namespace kt7::roles
