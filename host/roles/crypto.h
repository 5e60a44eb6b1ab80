#pragma once

namespace kt7::host {

/// Sets up libgcrypt, once a process; a collaborator error where the installed one is too old.
void requireCrypto();

}  // namespace kt7::host
