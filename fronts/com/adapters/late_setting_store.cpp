#include <kt7/error.h>
#include "fronts/com/adapters/answered.h"
#include "fronts/com/adapters/collaborators.h"
#include "fronts/com/adapters/host_objects.h"

namespace kt7::adapters {

double LateSettingStore::GetNumberSetting(const std::string& key,
                                          const std::string& connectionString) {
  return answered<double>(object_, L"GetNumberSetting", key, connectionString);
}
std::string LateSettingStore::ReadSettingText(const std::string& key,
                                              const ado::ActiveConnection& on,
                                              std::int16_t reserved) {
  return answered<std::string>(object_, L"ReadSettingText", key, argumentOf(on).raw(), reserved);
}
std::string LateSettingStore::GetHeadOfficeBranchCode(DataObj& dataObj) {
  const auto* late = dynamic_cast<const LateDataObj*>(&dataObj);
  if (late == nullptr) raiseTypeMismatch("a data object that is no object of the host");
  return answered<std::string>(object_, L"GetHeadOfficeBranchCode", late->get());
}
bool LateSettingStore::IsAdministrator(std::int32_t userID, const std::string& connectionString) {
  return answered<bool>(object_, L"IsAdministrator", userID, connectionString);
}
bool LateSettingStore::IsModuleAdministrator(const std::string& module, std::int32_t userID,
                                             const std::string& connectionString) {
  return answered<bool>(object_, L"IsModuleAdministrator", module, userID, connectionString);
}
bool LateSettingStore::UserHasRight(std::int32_t userID, const std::string& rightKey,
                                    const std::string& dataConnectionString,
                                    const std::string& appConnectionString, std::int16_t reserved) {
  return answered<bool>(object_, L"UserHasRight", userID, rightKey, dataConnectionString,
                        appConnectionString, reserved);
}

}  // namespace kt7::adapters
