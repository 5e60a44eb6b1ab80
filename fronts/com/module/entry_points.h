#pragma once

#include <span>

#include "fronts/com/automation/class_factory.h"
#include "fronts/com/automation/registration.h"

namespace kt7::automation {

/// What tells one automation DLL from another.
struct Module {
  std::span<const CreatableClass> classes;
  Registered (*registered)();
  /// Called before the DLL goes, null for nothing to do.
  void (*unloading)() noexcept = nullptr;
};

/// Each DLL that is built with entry_points.cpp says what it is.
Module thisModule();

}  // namespace kt7::automation
