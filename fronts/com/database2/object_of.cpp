#include "fronts/com/database2/object_of.h"

namespace kt7::database2 {

// {6B0D3C52-8E55-4C0B-9B21-6A3C1FD10E47}
const IID OwnObject::kId{
    0x6b0d3c52, 0x8e55, 0x4c0b, {0x9b, 0x21, 0x6a, 0x3c, 0x1f, 0xd1, 0x0e, 0x47}};

OwnObject* OwnObject::behind(IUnknown* object) {
  void* own = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(kId, &own))) return nullptr;
  // The caller's reference keeps it alive.
  object->Release();
  return static_cast<OwnObject*>(own);
}

}  // namespace kt7::database2
