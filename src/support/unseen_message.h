#pragma once

#include <string_view>

namespace kt7 {

/// Where a message goes that no window can show: one line on standard error, control characters as
/// blanks.
void writeUnseenMessage(std::string_view text);

}  // namespace kt7
