#pragma once

#include <windows.h>

#include <span>

namespace kt7::automation {

/// Makes an object and answers the interface asked for; `outer` is null unless it is aggregated.
/// May raise: the factory turns that into a status with error information.
using Creation = HRESULT (*)(IUnknown* outer, REFIID id, void** object);

struct CreatableClass {
  const CLSID& id;
  Creation create;
  const char* source;
};

/// The body of DllGetClassObject.
HRESULT classObject(std::span<const CreatableClass> classes, REFCLSID classId, REFIID id,
                    void** object) noexcept;

/// The usual creation of an AutomationObject that is made from `arguments`.
template <typename Object, typename... A>
HRESULT createObject(IUnknown* outer, REFIID id, void** object, A&&... arguments) {
  if (outer != nullptr && !IsEqualIID(id, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
  IUnknown* own = (new Object(outer, static_cast<A&&>(arguments)...))->own();
  const HRESULT status = own->QueryInterface(id, object);
  own->Release();
  return status;
}

}  // namespace kt7::automation
