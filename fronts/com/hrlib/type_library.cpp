#include "fronts/com/hrlib/type_library.h"

#include <mutex>

#include "fronts/com/automation/module.h"

namespace kt7::hrlib {

namespace {

// Kept, because loading takes longer than most calls. A plain pointer: when the process ends, the
// system's part may be gone before this one.
std::mutex guard;
ITypeLib* loaded = nullptr;

HRESULT load() {
  if (loaded != nullptr) return S_OK;
  return LoadTypeLibEx(automation::modulePath().c_str(), REGKIND_NONE, &loaded);
}

}  // namespace

HRESULT typeInformation(REFIID interfaceId, ITypeInfo** information) noexcept {
  if (information == nullptr) return E_POINTER;
  *information = nullptr;
  try {
    const std::lock_guard lock(guard);
    const HRESULT status = load();
    return FAILED(status) ? status : loaded->GetTypeInfoOfGuid(interfaceId, information);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

void forgetTypeInformation() noexcept {
  if (loaded != nullptr) loaded->Release();
  loaded = nullptr;
}

}  // namespace kt7::hrlib
