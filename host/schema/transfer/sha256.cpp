#include "host/schema/transfer/sha256.h"

#include <gcrypt.h>

#include <kt7/error.h>
#include "host/roles/crypto.h"

namespace kt7::schema {

struct Sha256::State {
  gcry_md_hd_t handle = nullptr;
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
  host::requireCrypto();
  if (const gcry_error_t failed = gcry_md_open(&state_->handle, GCRY_MD_SHA256, 0); failed != 0) {
    raiseCollaborator(error_number::kCallFailed, std::string("SHA-256: ") + gcry_strerror(failed));
  }
}

Sha256::~Sha256() { gcry_md_close(state_->handle); }

void Sha256::add(std::string_view text) { gcry_md_write(state_->handle, text.data(), text.size()); }

std::string Sha256::hexadecimal() {
  constexpr std::size_t kHashBytes = 32;
  constexpr std::string_view kDigits = "0123456789abcdef";
  const unsigned char* const bytes = gcry_md_read(state_->handle, GCRY_MD_SHA256);
  std::string text;
  for (std::size_t i = 0; i < kHashBytes; ++i) {
    text += kDigits[bytes[i] >> 4];
    text += kDigits[bytes[i] & 15];
  }
  return text;
}

}  // namespace kt7::schema
