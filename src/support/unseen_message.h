#pragma once

#include <string>

namespace kt7 {

/// Where a message goes that no window can show: one line on standard error.
void writeUnseenMessage(std::string text);

}  // namespace kt7
