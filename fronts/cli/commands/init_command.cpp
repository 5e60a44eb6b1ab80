#include <CLI/CLI.hpp>
#include <iostream>

#include "base/error.h"
#include "command.h"
#include "host/data/database.h"
#include "host/schema/schema.h"

namespace kt7::cli {

namespace {

struct InitOptions {
  DatabaseOptions database;
  bool sample = false;
};

int makeDatabase(const InitOptions& given, Console& console) {
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  const std::string shown = data::shownConnectionString(given.database.database);
  data::createDatabase(connectionString);
  const auto connection = data::createConnection();
  connection->Open(connectionString);
  const schema::Engine engine = schema::engineOf(data::databaseType(connectionString));
  if (schema::hasSchema(*connection, engine)) {
    throw std::runtime_error(shown +
                             " holds a company already: nothing was changed; name a new "
                             "database or remove this one first");
  }
  schema::createSchema(*connection, engine);
  if (given.sample) schema::loadSample(*connection);
  connection->Close();

  console.out << "Made " << schema::tables().size() << " tables and " << schema::views().size()
              << " views in " << shown << (given.sample ? ", with the sample company.\n" : ".\n")
              << "Next: "
              << (given.sample ? "kt7hr payroll --month 2026-01"
                               : "kt7hr import KT7TEmployeeType types.csv")
              << " --db '" << data::shownConnectionString(given.database.database) << "'\n";
  return kDone;
}

}  // namespace

void addInit(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<InitOptions>();
  CLI::App& command =
      addCommand(app, "init", "Make the tables and views of a company in an empty database",
                 "kt7hr init --sample --db 'Driver=SQLite;Database=company.db'");
  command.add_flag("--sample", given->sample, "Fill in the sample company");
  given->database.addTo(command);
  command.callback([given, &line] {
    line.chosen = [given, &line] { return makeDatabase(*given, line.console); };
  });
}

}  // namespace kt7::cli
