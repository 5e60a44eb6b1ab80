#include "host/roles/permission_token.h"

#include <gcrypt.h>

#include <array>
#include <cstdint>

#include <kt7/error.h>
#include "host/roles/crypto.h"

namespace kt7::host {

namespace {

constexpr std::size_t kHashBytes = 32;

gcry_buffer_t bufferOf(std::string_view bytes) {
  gcry_buffer_t buffer{};
  buffer.size = bytes.size();
  buffer.len = bytes.size();
  buffer.data = const_cast<char*>(bytes.data());
  return buffer;
}

}  // namespace

std::string keyedHash(std::string_view text, std::string_view key) {
  requireCrypto();
  // With the HMAC flag the first buffer is the key.
  const std::array<gcry_buffer_t, 2> buffers{bufferOf(key), bufferOf(text)};
  std::string hash(kHashBytes, '\0');
  const gcry_error_t failed =
      gcry_md_hash_buffers(GCRY_MD_SHA256, GCRY_MD_FLAG_HMAC, hash.data(), buffers.data(),
                           static_cast<int>(buffers.size()));
  if (failed) {
    raiseCollaborator(error_number::kCallFailed,
                      std::string("EncodeWithKey: ") + gcry_strerror(failed));
  }
  return hash;
}

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

}  // namespace kt7::host
