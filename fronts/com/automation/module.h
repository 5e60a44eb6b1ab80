#pragma once

#include <windows.h>

#include <string>

/// The DLL that this code is linked into: how many objects it has given out, and where it lies.
namespace kt7::automation {

/// Counts one living object of the module; a member of every object that is given out.
class LivingObject {
 public:
  LivingObject();
  LivingObject(const LivingObject&) = delete;
  LivingObject& operator=(const LivingObject&) = delete;
  ~LivingObject();
};

/// Objects and server locks that are alive.
long livingObjects();

/// What IClassFactory::LockServer counts.
void lockModule(bool lock);

std::wstring modulePath();

}  // namespace kt7::automation
