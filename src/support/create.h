#pragma once

#include <memory>

#include <kt7/contract/platform.h>
#include <kt7/error.h>

namespace kt7 {

/// The collaborator in the slot, made when the slot is empty; a creation that fails leaves it
/// empty. A platform that answers nothing is a collaborator error.
template <typename Role>
Role& createdOnFirstUse(std::unique_ptr<Role>& slot, Platform& platform,
                        std::unique_ptr<Role> (Platform::*create)()) {
  if (!slot) {
    slot = (platform.*create)();
    if (!slot) raiseCollaborator(error_number::kCannotCreate, "A collaborator cannot be created");
  }
  return *slot;
}

}  // namespace kt7
