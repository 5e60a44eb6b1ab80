#include <kt7/host/platform.h>

#include <algorithm>

#include "host/data/contract/database.h"
#include "host/machine/local_time.h"
#include "host/roles/host_data_tool.h"
#include "host/roles/host_setting_store.h"
#include "host/roles/host_utility_object.h"
#include "support/unseen_message.h"

namespace kt7::host {

namespace {

Date localTime() {
  const std::tm local = localCalendarTime(std::time(nullptr));
  constexpr int kFirstTmYear = 1900;
  return Date::fromYmdHms(local.tm_year + kFirstTmYear, local.tm_mon + 1, local.tm_mday,
                          local.tm_hour, local.tm_min, std::min(local.tm_sec, 59));
}

}  // namespace

std::unique_ptr<ado::Connection> HostPlatform::createConnection() {
  return data::createConnection();
}
std::unique_ptr<ado::Recordset> HostPlatform::createRecordset() { return data::createRecordset(); }
std::unique_ptr<UtilityObject> HostPlatform::createUtilityObject() {
  return std::make_unique<HostUtilityObject>(*this);
}
std::unique_ptr<DataTool> HostPlatform::createDataTool() {
  return std::make_unique<HostDataTool>(picker_);
}
std::unique_ptr<SettingStore> HostPlatform::createSettingStore() {
  return std::make_unique<HostSettingStore>();
}

Date HostPlatform::now() { return fixedNow_ ? *fixedNow_ : localTime(); }

void HostPlatform::showMessage(const std::string& text) {
  if (messageView_) {
    try {
      messageView_(text);
      return;
    } catch (...) {  // NOLINT(bugprone-empty-catch): a terminal may be gone, the line below tells
    }
  }
  writeUnseenMessage(text);
}

}  // namespace kt7::host
