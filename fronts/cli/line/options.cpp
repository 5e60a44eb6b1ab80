#include "fronts/cli/line/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include <kt7/error.h>
#include "base/text.h"
#include "fronts/cli/line/password_file.h"
#include "host/data/session/connection_string.h"

namespace kt7::cli {

namespace {

constexpr std::string_view kPasswordFile = "PwdFile";

data::ConnectionString readConnectionString(const std::string& given) {
  try {
    return data::ConnectionString(given);
  } catch (const Error& error) {
    throw WrongUse(error.what());
  }
}

}  // namespace

CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& does,
                     const std::string& example) {
  CLI::App* command = app.add_subcommand(name, does);
  command->footer("Example:\n  " + example);
  return *command;
}

std::string connectionStringOf(const std::string& given, const std::string& option) {
  if (given.find('=') == std::string::npos) {
    throw WrongUse("'" + given + "' is no connection string; use " + option +
                   " 'Driver=SQLite;Database=" + given + "'");
  }
  const data::ConnectionString where = readConnectionString(given);
  const std::string path(where.value(kPasswordFile));
  if (path.empty()) {
    if (where.textWithout(kPasswordFile, "") == given) return given;
    throw WrongUse("PwdFile names no file in the connection string; write PwdFile=FILE");
  }
  return "Pwd={" + replaceAll(passwordIn(path), "}", "}}") + "};" +
         where.textWithout(kPasswordFile, path);
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
  return connectionStringOf(database, "--db");
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
  command
      .add_option_function<std::string>(
          "--pick", [this](const std::string& codes) { pick = split(codes, ','); },
          "What a record picker answers, as E0001,E0002; \"\" for nothing")
      ->type_name("CODES");
}

}  // namespace kt7::cli
