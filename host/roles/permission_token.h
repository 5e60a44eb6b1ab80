#pragma once

#include <string>

namespace kt7::host {

/// HMAC-SHA-256 of the text under the key: 32 raw bytes.
std::string keyedHash(const std::string& text, const std::string& key);

}  // namespace kt7::host
