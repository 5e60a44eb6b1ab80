#include <kt7/roles/standard_platform.h>

#include <algorithm>
#include <ctime>

#include "roles/data/connection.h"
#include "roles/data/recordset.h"
#include "roles/data_tool.h"
#include "roles/machine/local_time.h"
#include "roles/setting_store.h"
#include "support/unseen_message.h"

namespace kt7::roles {

namespace {

Date localTime() {
  const std::tm local = localCalendarTime(std::time(nullptr));
  constexpr int kFirstTmYear = 1900;
  return Date::fromYmdHms(local.tm_year + kFirstTmYear, local.tm_mon + 1, local.tm_mday,
                          local.tm_hour, local.tm_min, std::min(local.tm_sec, 59));
}

}  // namespace

StandardPlatform::StandardPlatform(std::shared_ptr<data::Sessions> sessions)
    : sessions_(std::move(sessions)) {}

std::unique_ptr<ado::Connection> StandardPlatform::createConnection() {
  return std::make_unique<data::Connection>(*sessions_);
}

std::unique_ptr<ado::Recordset> StandardPlatform::createRecordset() {
  return std::make_unique<data::Recordset>(*sessions_);
}

std::unique_ptr<UtilityObject> StandardPlatform::createUtilityObject() {
  return std::make_unique<StandardUtilityObject>(*this, keyedHash_);
}

std::unique_ptr<DataTool> StandardPlatform::createDataTool() {
  return std::make_unique<StandardDataTool>(*sessions_, picker_);
}

std::unique_ptr<SettingStore> StandardPlatform::createSettingStore() {
  return std::make_unique<StandardSettingStore>(*sessions_);
}

Date StandardPlatform::now() { return fixedNow_ ? *fixedNow_ : localTime(); }

void StandardPlatform::showMessage(const std::string& text) {
  if (messageView_) {
    try {
      messageView_(text);
      return;
    } catch (...) {  // NOLINT(bugprone-empty-catch): a terminal may be gone, the line below tells
    }
  }
  writeUnseenMessage(text);
}

}  // namespace kt7::roles
