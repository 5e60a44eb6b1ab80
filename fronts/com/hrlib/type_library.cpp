#include "fronts/com/hrlib/type_library.h"

#include <wrl/client.h>

#include <mutex>

#include "fronts/com/automation/module.h"

namespace kt7::hrlib {

namespace {

// Loading takes longer than most calls.
std::mutex guard;
Microsoft::WRL::ComPtr<ITypeLib> loaded;

HRESULT load() {
  if (loaded) return S_OK;
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

void forgetTypeInformation() noexcept { loaded.Reset(); }

}  // namespace kt7::hrlib
