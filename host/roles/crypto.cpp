#include "host/roles/crypto.h"

#include <gcrypt.h>

#include <kt7/error.h>

namespace kt7::host {

namespace {

/// An embedding host may have set up the library already; it must be set up once a process.
bool cryptoReady() {
  static const bool ready = [] {
    if (gcry_control(GCRYCTL_INITIALIZATION_FINISHED_P)) return true;
    if (!gcry_check_version(GCRYPT_VERSION)) return false;
    gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
    gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
    return true;
  }();
  return ready;
}

}  // namespace

void requireCrypto() {
  if (!cryptoReady()) {
    raiseCollaborator(error_number::kCannotCreate, "the installed libgcrypt is too old");
  }
}

}  // namespace kt7::host
