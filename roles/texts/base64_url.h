#pragma once

#include <string>
#include <string_view>

namespace kt7::roles {

/// base64 in the alphabet for addresses ("-" and "_"), without padding.
std::string base64Url(std::string_view bytes);

}  // namespace kt7::roles
