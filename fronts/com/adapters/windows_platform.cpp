#include "fronts/com/adapters/windows_platform.h"

#include "fronts/com/adapters/collaborators.h"
#include "fronts/com/adapters/late_connection.h"
#include "fronts/com/adapters/late_recordset.h"
#include "fronts/com/automation/message_line.h"
#include "fronts/com/automation/registration.h"
#include "fronts/com/automation/text.h"

namespace kt7::adapters {

namespace {

constexpr const wchar_t* kTitle = L"KT7HRLib";

std::wstring progIdOf(const wchar_t* role, const wchar_t* usualProgId) {
  return automation::registrySetting(WindowsPlatform::kSettingsKey, role, usualProgId);
}

LateObject createRole(const wchar_t* role, const wchar_t* usualProgId) {
  return automation::createByProgId(progIdOf(role, usualProgId));
}

/// False in a service and wherever else no person looks at the screen.
bool someoneIsThere() {
  USEROBJECTFLAGS flags{};
  DWORD needed = 0;
  return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags,
                                   &needed) != FALSE &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace

LateObject WindowsPlatform::createOften(std::optional<KnownClass>& known, const wchar_t* role,
                                        const wchar_t* usualProgId) {
  if (!known) {
    const std::wstring progId = progIdOf(role, usualProgId);
    known = {automation::classOf(progId), automation::toUtf8(progId)};
  }
  return automation::createByClass(known->id, known->progId);
}

std::unique_ptr<ado::Connection> WindowsPlatform::createConnection() {
  return std::make_unique<LateConnection>(
      createOften(connectionClass_, L"Connection", L"ADODB.Connection"));
}
std::unique_ptr<ado::Recordset> WindowsPlatform::createRecordset() {
  return std::make_unique<LateRecordset>(
      createOften(recordsetClass_, L"Recordset", L"ADODB.Recordset"));
}
std::unique_ptr<UtilityObject> WindowsPlatform::createUtilityObject() {
  return std::make_unique<LateUtilityObject>(
      createRole(L"UtilityObject", L"KT7Database2.UtilityObject"));
}
std::unique_ptr<DataTool> WindowsPlatform::createDataTool() {
  return std::make_unique<LateDataTool>(createRole(L"DataTool", L"KT7Database2.DataTool"));
}
std::unique_ptr<SettingStore> WindowsPlatform::createSettingStore() {
  return std::make_unique<LateSettingStore>(
      createRole(L"SettingStore", L"KT7Database2.SettingStore"));
}

Date WindowsPlatform::now() {
  SYSTEMTIME time{};
  GetLocalTime(&time);
  return Date::fromYmdHms(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute,
                          time.wSecond);
}

void WindowsPlatform::showMessage(const std::string& text) {
  const std::wstring wide = automation::toWide(text);
  if (someoneIsThere() && MessageBoxW(nullptr, wide.c_str(), kTitle, MB_OK | MB_TASKMODAL) > 0) {
    return;
  }
  automation::writeOneLine(wide);
}

}  // namespace kt7::adapters
