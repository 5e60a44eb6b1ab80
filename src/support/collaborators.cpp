#include <kt7/contract/collaborators.h>

#include "support/create.h"

namespace kt7 {

UtilityObject& Collaborators::utility() {
  return createdOnFirstUse(utility_, platform_, &Platform::createUtilityObject);
}

DataTool& Collaborators::dataTool() {
  return createdOnFirstUse(dataTool_, platform_, &Platform::createDataTool);
}

SettingStore& Collaborators::settings() {
  return createdOnFirstUse(settings_, platform_, &Platform::createSettingStore);
}

}  // namespace kt7
