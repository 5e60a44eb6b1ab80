#include <CLI/CLI.hpp>
#include <fstream>

#include "base/text.h"
#include "command.h"

namespace kt7::cli {

namespace {

constexpr std::string_view kPasswordFile = "PwdFile";

std::string firstLineOf(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  if (!std::getline(file, line) && !file.eof()) {
    throw std::runtime_error("cannot read the password file '" + path + "' that PwdFile names");
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.find(';') != std::string::npos) {
    throw std::runtime_error("the password in '" + path + "' must not contain a semicolon");
  }
  return line;
}

}  // namespace

CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& does,
                     const std::string& example) {
  CLI::App* command = app.add_subcommand(name, does);
  command->footer("Example:\n  " + example);
  return *command;
}

void DatabaseOptions::addTo(CLI::App& command) {
  command
      .add_option("--db", database,
                  "The database: Driver=SQLite;Database=company.db. PwdFile=... names a file with "
                  "the password")
      ->envname("KT7HR_DB")
      ->type_name("CONNECTION");
  command.add_option("--now", now, "The date and time to take for now, as 2026-01-31[T09:00:00]")
      ->type_name("DATETIME");
}

std::string DatabaseOptions::connectionString() const {
  if (database.empty()) {
    throw WrongUse(
        "no database given; use --db 'Driver=SQLite;Database=company.db' or set KT7HR_DB");
  }
  if (database.find('=') == std::string::npos) {
    throw WrongUse("'" + database + "' is no connection string; use --db 'Driver=SQLite;Database=" +
                   database + "'");
  }
  std::string resolved;
  for (const std::string& part : split(database, ';')) {
    const std::size_t equals = part.find('=');
    const bool named = equalNoCase(trimmedBlanks(part.substr(0, equals)), kPasswordFile);
    if (!resolved.empty()) resolved += ';';
    resolved += named && equals != std::string::npos
                    ? "Pwd=" + firstLineOf(std::string(trimmedBlanks(part.substr(equals + 1))))
                    : part;
  }
  return resolved;
}

std::optional<Date> DatabaseOptions::clock() const {
  if (now.empty()) return std::nullopt;
  Date date;
  if (!Date::tryFromIsoText(now, date)) {
    throw WrongUse("'" + now + "' is no date for --now; write 2026-01-31 or 2026-01-31T09:00:00");
  }
  return date;
}

void WorkplaceOptions::addTo(CLI::App& command) {
  command.add_option("--user", user, "The number of the user who works")->type_name("NUMBER");
  command.add_option("--branch", branch, "The code of the branch worked at")->type_name("CODE");
  command.add_option("--pick", pick, "What a record picker answers, as E0001,E0002")
      ->type_name("CODES");
}

}  // namespace kt7::cli
