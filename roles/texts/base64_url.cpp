#include "roles/texts/base64_url.h"

#include <cstdint>

namespace kt7::roles {

std::string base64Url(std::string_view bytes) {
  constexpr std::string_view kAlphabet =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
  std::string text;
  text.reserve((bytes.size() * 4 + 2) / 3);
  std::uint32_t bits = 0;
  int count = 0;
  for (const char byte : bytes) {
    bits = bits << 8 | static_cast<unsigned char>(byte);
    for (count += 8; count >= 6; count -= 6) text += kAlphabet[bits >> (count - 6) & 63];
  }
  if (count > 0) text += kAlphabet[bits << (6 - count) & 63];
  return text;
}

}  // namespace kt7::roles
