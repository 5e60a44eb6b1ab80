#pragma once

#include <string>
#include <string_view>

namespace kt7::host {

/// HMAC-SHA-256 of the text under the key: 32 raw bytes.
std::string keyedHash(std::string_view text, std::string_view key);

/// base64 in the alphabet for addresses ("-" and "_"), without padding.
std::string base64Url(std::string_view bytes);

}  // namespace kt7::host
