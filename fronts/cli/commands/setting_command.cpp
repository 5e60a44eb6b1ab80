#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>

#include "base/number_text.h"
#include "base/setting_names.h"
#include "command.h"
#include "fronts/cli/line/code_argument.h"
#include "fronts/cli/line/open_company.h"
#include "fronts/common/nearest_name.h"
#include "host/data/contract/database.h"

namespace kt7::cli {

namespace {

struct SettingOptions {
  DatabaseOptions database;
  std::string key;
  std::string value;
};

/// The number that the whole text writes in plain decimals; null for any other text.
Value numberIn(const std::string& text) {
  double number = 0;
  return readPlainNumber(text, number, std::chars_format::fixed) ? Value(number) : Value();
}

/// On the row of that key, or on a new one. The key is compared here, so that it may hold any
/// character.
void moveToRow(ado::Recordset& settings, const std::string& key) {
  for (; !settings.Eof(); settings.MoveNext()) {
    if (settings.get("TSetKey").joinedText() == key) return;
  }
  settings.AddNew();
  settings.set("TSetKey", key);
}

/// Hosts may keep settings of their own, but a misspelt key would change nothing in silence.
void warnOfUnknownKey(const std::string& key, Console& console) {
  constexpr std::array<std::string_view, 10> kKnown{
      setting_name::kExpensesPercent,      setting_name::kExpensesNotOver,
      setting_name::kSelfAllowance,        setting_name::kSocialSecurityMinPay,
      setting_name::kSocialSecurityMaxPay, setting_name::kSocialSecurityPercent,
      setting_name::kEmployerPercent,      setting_name::kCompanyCode,
      setting_name::kCompanyName,          setting_name::kHeadOfficeBranch};
  if (std::ranges::find(kKnown, key) != kKnown.end()) return;
  say(console, "no rule asks for the setting '" + key + "'" + didYouMean(key, kKnown));
}

int setSetting(const SettingOptions& given, Console& console) {
  if (given.key.empty()) throw WrongUse("a setting needs a key: kt7hr setting set KEY VALUE");
  newText(given.key, "setting's key", "KT7TSetting", "TSetKey");
  newText(given.value, "setting's value", "KT7TSetting", "TSetText");
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  const Value number = numberIn(given.value);
  const auto company = openCompany(connectionString);
  const auto settings = data::createRecordset();
  settings->Open("SELECT * FROM KT7TSetting", *company, ado::kStatic, ado::kOptimistic);
  moveToRow(*settings, given.key);
  settings->set("TSetNumber", number);
  settings->set("TSetText", given.value);
  settings->Update();
  settings->Close();
  warnOfUnknownKey(given.key, console);
  console.out << given.key << " is now " << (number.isNull() ? "the text '" : "the number ")
              << given.value << (number.isNull() ? "'\n" : "\n");
  return kDone;
}

}  // namespace

void addSetting(CLI::App& app, CommandLine& line) {
  CLI::App& group = addCommand(app, "setting", "Change the company's settings",
                               "kt7hr setting set STAXMaxRate 17500");
  group.require_subcommand(1);
  const auto given = std::make_shared<SettingOptions>();
  CLI::App& command =
      addCommand(group, "set", "Set one setting: a number where the value is one, and a text",
                 "kt7hr setting set STAXMaxRate 17500");
  command.add_option("key", given->key, "The setting, as STAXMaxRate")
      ->required()
      ->type_name("KEY");
  command.add_option("value", given->value, "Its new value")->required()->type_name("VALUE");
  given->database.addTo(command);
  command.callback([given, &line] {
    line.chosen = [given, &line] { return setSetting(*given, line.console); };
  });
}

}  // namespace kt7::cli
