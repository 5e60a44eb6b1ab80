#include <kt7/hr_object.h>

namespace kt7 {

HRObject::HRObject(Platform& platform, _HRObject* outer) : platform_(platform), outer_(outer) {}

HRObject::~HRObject() = default;

}  // namespace kt7
