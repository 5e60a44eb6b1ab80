#include <CLI/CLI.hpp>
#include <iostream>

#include <kt7/error.h>
#include "command.h"
#include "fronts/common/display_text.h"
#include "host/data/contract/database.h"
#include "host/data/session/connection_string.h"
#include "host/schema/engine/engine_checks.h"
#include "host/schema/state/schema.h"

namespace kt7::cli {

namespace {

struct InitOptions {
  DatabaseOptions database;
  bool sample = false;
};

void makeCompany(ado::Connection& connection, Engine engine, bool sample, const std::string& shown,
                 Console& console) {
  schema::createSchema(connection, engine,
                       sample ? schema::Content::Sample : schema::Content::Empty);
  console.out << "Made " << schema::tables().size() << " tables and " << schema::views().size()
              << " views in " << shown << (sample ? ", with the sample company.\n" : ".\n")
              << "Next: "
              << (sample ? "kt7hr payroll --month 2026-01"
                         : "kt7hr import KT7TEmployeeType types.csv")
              << " --db '" << shown << "'\n";
}

void upgrade(ado::Connection& connection, Engine engine, int from, const std::string& shown,
             Console& console) {
  schema::upgradeSchema(connection, engine, from);
  console.out << "Upgraded " << shown << " from version " << from << " to "
              << schema::kSchemaVersion << "; its rows are as they were.\n";
}

void lookOver(ado::Connection& connection, Engine engine, bool sample, const std::string& shown,
              Console& console) {
  schema::requireByteOrder(connection, engine);
  if (schema::hasFunctions(connection, engine)) {
    console.out << shown << " holds a company already: nothing was changed.\n";
    if (sample) console.out << "The sample company goes into an empty database only.\n";
    return;
  }
  for (const std::string& function : schema::createFunctionTexts(engine)) {
    connection.Execute(function);
  }
  console.out << shown << " holds a company already: only the function year() was made anew.\n";
}

void bringUpToDate(ado::Connection& connection, const InitOptions& given, Console& console) {
  using Kind = schema::SchemaState::Kind;
  const Engine engine = data::engineOn(connection);
  const std::string shown = screens::oneLine(data::shownConnectionString(given.database.database));
  try {
    const schema::SchemaState state = schema::schemaState(connection, engine);
    const bool unfinished = state.kind == Kind::Partial && state.version == 0;
    if (state.kind == Kind::Absent ||
        (unfinished && schema::removeUnfinished(connection, engine))) {
      makeCompany(connection, engine, given.sample, shown, console);
    } else if (state.kind == Kind::Older) {
      upgrade(connection, engine, state.version, shown, console);
    } else {
      schema::requireCurrentSchema(connection, engine);
      lookOver(connection, engine, given.sample, shown, console);
    }
  } catch (const Error& error) {
    const std::string grants = schema::grantsFor(error, engine);
    if (grants.empty()) throw;
    throw std::runtime_error(error.what() + ("; " + grants));
  }
}

int makeDatabase(const InitOptions& given, Console& console) {
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  data::createDatabase(connectionString);
  const auto connection = data::createConnection();
  connection->Open(connectionString);
  bringUpToDate(*connection, given, console);
  return kDone;
}

}  // namespace

void addInit(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<InitOptions>();
  CLI::App& command = addCommand(app, "init",
                                 "Make the tables and views of a company in an empty database, "
                                 "or upgrade those of an earlier version",
                                 "kt7hr init --sample --db 'Driver=SQLite;Database=company.db'");
  command.add_flag("--sample", given->sample, "Fill in the sample company");
  given->database.addTo(command);
  command.callback([given, &line] {
    line.chosen = [given, &line] { return makeDatabase(*given, line.console); };
  });
}

}  // namespace kt7::cli
