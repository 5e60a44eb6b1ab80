#include "host/roles/permission_token.h"

#include <gcrypt.h>

#include <array>
#include <string_view>

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

std::string keyedHash(const std::string& text, const std::string& key) {
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

}  // namespace kt7::host
