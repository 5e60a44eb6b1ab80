#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "base/text.h"
#include "command.h"
#include "fronts/cli/line/open_company.h"
#include "fronts/common/nearest_name.h"
#include "host/data/contract/database.h"
#include "host/schema/description/table.h"
#include "host/schema/transfer/import.h"

namespace kt7::cli {

namespace {

struct ImportOptions {
  DatabaseOptions database;
  std::string table;
  std::string file;
};

void refuseUnknownTable(const std::string& name) {
  if (schema::findTable(name) != nullptr || schema::findView(name) != nullptr) return;
  std::vector<std::string_view> names;
  for (const schema::Table& table : schema::tables()) names.push_back(table.name);
  throw WrongUse("no table '" + name + "'" + didYouMean(name, names));
}

int importFile(const ImportOptions& given, Console& console) {
  refuseUnknownTable(given.table);
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  std::ifstream file(given.file);
  if (!file) throw std::runtime_error("cannot read '" + given.file + "'");
  const auto connection = openCompany(connectionString);
  try {
    const schema::ImportResult result = schema::importTable(*connection, given.table, file);
    console.out << result.rows << (result.rows == 1 ? " row" : " rows") << " added to "
                << result.table << ".\n";
  } catch (const schema::ImportError& error) {
    throw std::runtime_error("nothing was imported from '" + given.file +
                             "': " + joined(error.problems(), "; "));
  }
  return kDone;
}

}  // namespace

void addImport(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<ImportOptions>();
  CLI::App& command =
      addCommand(app, "import",
                 "Add the rows of a CSV file to a table, all or none; its first line names the "
                 "columns, dates are yyyy-mm-dd",
                 "kt7hr import KT7TEmployeeType types.csv");
  command.add_option("table", given->table, "The table, as KT7TEmployee")
      ->required()
      ->type_name("TABLE");
  command.add_option("file", given->file, "The CSV file")->required()->type_name("FILE.csv");
  given->database.addTo(command);
  command.callback([given, &line] {
    line.chosen = [given, &line] { return importFile(*given, line.console); };
  });
}

}  // namespace kt7::cli
