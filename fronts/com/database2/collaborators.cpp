#include "fronts/com/database2/collaborators.h"

#include <array>
#include <functional>

#include "fronts/com/automation/text.h"
#include "fronts/com/database2/application.h"
#include "fronts/com/database2/data_access.h"

namespace kt7::database2 {

namespace {

using Flag = std::optional<bool>;

PickerRequest pickerRequest(const std::string& title, const std::string& key,
                            const std::string& columns, const std::string& headers,
                            const std::string& widths, const std::string& kinds,
                            const std::string& source, const std::array<Flag, 4>& options) {
  PickerRequest request{title, key, columns, headers, widths, kinds, source};
  for (std::size_t i = 0; i < options.size(); ++i) request.options[i] = options[i].value_or(false);
  return request;
}

std::string showPicker(DataToolRole& tool, const std::string& title, const std::string& key,
                       const std::string& columns, const std::string& headers,
                       const std::string& widths, const std::string& kinds,
                       const std::string& source, const std::string& connectionString,
                       const Flag& option1, const Flag& option2, const Flag& option3,
                       const Flag& option4) {
  return tool->ShowPicker(pickerRequest(title, key, columns, headers, widths, kinds, source,
                                        {option1, option2, option3, option4}),
                          connectionString);
}

std::string showMultiPicker(DataToolRole& tool, const std::string& title, const std::string& key,
                            const std::string& columns, const std::string& headers,
                            const std::string& widths, const std::string& kinds,
                            const std::string& source, const std::string& connectionString,
                            const Flag& option1, const Flag& option2, const Flag& option3,
                            const Flag& option4, const Flag& multiSelect) {
  return tool->ShowMultiPicker(pickerRequest(title, key, columns, headers, widths, kinds, source,
                                             {option1, option2, option3, option4}),
                               connectionString, multiSelect.value_or(false));
}

/// The keyed hash is bytes, and texts cross as UTF-16: each byte crosses as the character of its
/// number, so that the token made of them is the one that the users' rows hold.
std::string encodeWithKey(UtilityRole& utility, const std::string& text, const std::string& key) {
  std::string characters;
  for (const char byte : utility->EncodeWithKey(text, key)) {
    const auto number = static_cast<unsigned char>(byte);
    if (number >= 0x80) characters += static_cast<char>(0xC0 | number >> 6);
    characters += static_cast<char>(number >= 0x80 ? 0x80 | (number & 0x3F) : number);
  }
  return characters;
}

std::string encodeToken(UtilityRole& utility, const std::string& characters) {
  std::string bytes;
  for (const wchar_t character : automation::toWide(characters)) {
    // A text that is no hash is taken as it is.
    if (character > 0xFF) return utility->EncodeToken(characters);
    bytes += static_cast<char>(character);
  }
  return utility->EncodeToken(bytes);
}

template <auto Function>
constexpr auto utility(std::wstring_view name) {
  return answers<UtilityRole, Function>(name);
}
template <auto Function>
constexpr auto tool(std::wstring_view name) {
  return answers<DataToolRole, Function>(name);
}
template <auto Function>
constexpr auto settings(std::wstring_view name) {
  return answers<SettingStoreRole, Function>(name);
}

constexpr std::array kUtilityMembers{
    utility<&UtilityObject::TextToNumber>(L"TextToNumber"),
    utility<&UtilityObject::TextToInteger>(L"TextToInteger"),
    utility<&UtilityObject::RoundToDigits>(L"RoundToDigits"),
    utility<&UtilityObject::RoundValue>(L"RoundValue"),
    utility<&UtilityObject::SqlDateText>(L"SqlDateText"),
    utility<&UtilityObject::SqlShortDateText>(L"SqlShortDateText"),
    utility<&UtilityObject::SqlDateTimeText>(L"SqlDateTimeText"),
    utility<&UtilityObject::IsBlankDate>(L"IsBlankDate"),
    utility<&UtilityObject::IsValidDateText>(L"IsValidDateText"),
    utility<&UtilityObject::TextToDate>(L"TextToDate"),
    utility<&UtilityObject::AddMonths>(L"AddMonths"),
    utility<&UtilityObject::CurrentYear>(L"CurrentYear"),
    utility<&UtilityObject::MonthNumberText>(L"MonthNumberText"),
    utility<&UtilityObject::FallbackDate>(L"FallbackDate"),
    utility<&encodeWithKey>(L"EncodeWithKey"),
    utility<&encodeToken>(L"EncodeToken"),
};

constexpr std::array kDataToolMembers{
    tool<&DataTool::LookupText>(L"LookupText"),
    tool<&DataTool::LookupDouble>(L"LookupDouble"),
    tool<&DataTool::LookupNumber>(L"LookupNumber"),
    tool<&DataTool::LookupFieldText>(L"LookupFieldText"),
    tool<&DataTool::LookupDate>(L"LookupDate"),
    tool<&DataTool::RecordExists>(L"RecordExists"),
    tool<&DataTool::QueryNumber>(L"QueryNumber"),
    tool<&DataTool::QueryDouble>(L"QueryDouble"),
    tool<&DataTool::QueryValue>(L"QueryValue"),
    tool<&DataTool::QueryText>(L"QueryText"),
    tool<&DataTool::QueryDate>(L"QueryDate"),
    tool<&DataTool::PrepareSql>(L"PrepareSql"),
    tool<&showPicker>(L"ShowPicker"),
    tool<&showMultiPicker>(L"ShowMultiPicker"),
};

constexpr std::array kSettingStoreMembers{
    settings<&SettingStore::GetNumberSetting>(L"GetNumberSetting"),
    settings<&SettingStore::ReadSettingText>(L"ReadSettingText"),
    settings<&SettingStore::GetHeadOfficeBranchCode>(L"GetHeadOfficeBranchCode"),
    settings<&SettingStore::IsAdministrator>(L"IsAdministrator"),
    settings<&SettingStore::IsModuleAdministrator>(L"IsModuleAdministrator"),
    settings<&SettingStore::UserHasRight>(L"UserHasRight"),
};

}  // namespace

template <>
std::span<const MemberOf<UtilityRole>> membersOf<UtilityRole>() {
  return kUtilityMembers;
}
template <>
std::span<const MemberOf<DataToolRole>> membersOf<DataToolRole>() {
  return kDataToolMembers;
}
template <>
std::span<const MemberOf<SettingStoreRole>> membersOf<SettingStoreRole>() {
  return kSettingStoreMembers;
}

}  // namespace kt7::database2
