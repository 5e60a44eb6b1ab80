#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include <kt7/contract/platform.h>
#include "fronts/com/automation/late_object.h"

namespace kt7::adapters {

/// The library's platform on Windows. Collaborators and data-access objects are made by program id:
/// the names below, or what the registry names instead, as text values UtilityObject, DataTool,
/// SettingStore, Connection and Recordset of kSettingsKey (the current user's before the
/// machine's). A program id that is not registered, or whose object cannot be made, is an error
/// that names it.
class WindowsPlatform : public Platform {
 public:
  static constexpr const wchar_t* kSettingsKey = L"Software\\KT7HRLib\\ProgramIds";

  std::unique_ptr<ado::Connection> createConnection() override;
  std::unique_ptr<ado::Recordset> createRecordset() override;
  std::unique_ptr<UtilityObject> createUtilityObject() override;
  std::unique_ptr<DataTool> createDataTool() override;
  std::unique_ptr<SettingStore> createSettingStore() override;

  Date now() override;
  /// A message box. Where no person could see one, the text is a line on standard error and in the
  /// debugger's output; it is never an error.
  void showMessage(const std::string& text) override;

 private:
  struct KnownClass {
    CLSID id;
    std::string progId;
  };
  static automation::LateObject createOften(std::optional<KnownClass>& known, const wchar_t* role,
                                            const wchar_t* usualProgId);

  // Many are made by one object; the way from the name to the class is long.
  std::optional<KnownClass> connectionClass_;
  std::optional<KnownClass> recordsetClass_;
};

}  // namespace kt7::adapters
