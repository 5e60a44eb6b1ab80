#include <kt7/hr_object.h>

#include "support/create.h"

namespace kt7 {

HRObject::HRObject(Platform& platform, _HRObject* outer) : platform_(platform), outer_(outer) {}

HRObject::~HRObject() = default;

UtilityObject& HRObject::utility() {
  return createdOnFirstUse(utility_, platform_, &Platform::createUtilityObject);
}
DataTool& HRObject::dataTool() {
  return createdOnFirstUse(dataTool_, platform_, &Platform::createDataTool);
}
SettingStore& HRObject::settings() {
  return createdOnFirstUse(settings_, platform_, &Platform::createSettingStore);
}

}  // namespace kt7
