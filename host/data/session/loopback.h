#pragma once

#include <string_view>

namespace kt7::data {

/// Whether what is sent to that host never leaves this machine: "localhost" and the loopback
/// addresses as they are usually written. Any other name may be anywhere, whatever it means today.
bool isLoopback(std::string_view host);

}  // namespace kt7::data
