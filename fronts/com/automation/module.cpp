#include "fronts/com/automation/module.h"

#include <atomic>

namespace kt7::automation {

namespace {

std::atomic<long> living{0};

}  // namespace

LivingObject::LivingObject() { ++living; }
LivingObject::~LivingObject() { --living; }

long livingObjects() { return living; }

void lockModule(bool lock) { living += lock ? 1 : -1; }

std::wstring modulePath() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&modulePath), &module);
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD units = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (units < path.size()) {
      path.resize(units);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace kt7::automation
