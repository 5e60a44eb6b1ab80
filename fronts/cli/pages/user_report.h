#pragma once

#include <string>

#include "host/access/user_view.h"

namespace kt7::cli {

/// In plain words what a user may see, and which stored tokens do not hold; one fact a line.
std::string userReport(const host::UserView& view);

}  // namespace kt7::cli
