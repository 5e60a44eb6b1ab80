#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include <kt7/error.h>
#include "command.h"
#include "fronts/cli/line/open_company.h"
#include "fronts/cli/line/progress_bar.h"
#include "fronts/common/table_writer.h"
#include "host/data/contract/database.h"
#include "host/data/session/connection_string.h"
#include "host/schema/engine/engine_checks.h"
#include "host/schema/transfer/copy.h"

namespace kt7::cli {

namespace {

struct CopyCommandOptions {
  std::string from;
  std::string to;
};

class CopyView : public schema::CopyListener {
 public:
  explicit CopyView(Console& console) : bar_(console) {}
  void copied(std::int64_t rows, std::int64_t ofRows) override {
    bar_.show(rows, ofRows, "rows copied");
  }
  void compared(std::size_t tables, std::size_t ofTables) override {
    bar_.show(static_cast<std::int64_t>(tables), static_cast<std::int64_t>(ofTables),
              "tables compared");
  }

 private:
  ProgressBar bar_;
};

/// Enough of a checksum for two people to compare by eye.
std::string shortSum(const schema::TableSum& sum) {
  constexpr std::size_t kShown = 16;
  return sum.sha256.substr(0, kShown);
}

void print(const std::vector<schema::CopiedTable>& tables, Console& console) {
  using enum TableColumn::Side;
  std::vector<std::vector<std::string>> rows;
  rows.reserve(tables.size());
  for (const schema::CopiedTable& table : tables) {
    rows.push_back({table.table->name, std::to_string(table.source.rows),
                    std::to_string(table.target.rows), shortSum(table.source),
                    shortSum(table.target), table.same() ? "same" : "DIFFERS"});
  }
  std::vector<TableColumn> columns{{.header = "Table", .width = 22},
                                   {.header = "Rows", .side = Right, .width = 8},
                                   {.header = "Copied", .side = Right, .width = 8},
                                   {.header = "Checksum", .dropped = 2},
                                   {.header = "of the copy", .dropped = 1},
                                   {}};
  widen(columns, rows);
  TableWriter table(console.out, {.columns = columns, .width = console.width, .gap = 2});
  table.writeHead();
  for (const std::vector<std::string>& row : rows) table.writeRow(row);
  table.writeNotShown("a wider terminal shows them");
}

std::vector<schema::CopiedTable> copied(const std::string& from, const std::string& to,
                                        Console& console) {
  const auto source = openCompany(from);
  data::createDatabase(to);
  const auto target = data::createConnection();
  target->Open(to);
  try {
    CopyView view(console);
    return schema::copyCompany(*source, *target, view);
  } catch (const Error& error) {
    const std::string grants = schema::grantsFor(error, data::engineOn(*target));
    if (grants.empty()) throw;
    throw std::runtime_error(error.what() + ("; " + grants));
  }
}

int copy(const CopyCommandOptions& given, Console& console) {
  const std::string from = connectionStringOf(given.from, "--from");
  const std::string to = connectionStringOf(given.to, "--to");
  const std::vector<schema::CopiedTable> tables = copied(from, to, console);
  print(tables, console);
  const std::string shown = data::shownConnectionString(given.to);
  if (!std::ranges::all_of(tables, &schema::CopiedTable::same)) {
    say(console,
        "the copy differs where the table says so: somebody wrote to one of the ends "
        "meanwhile; empty " +
            shown + " and copy again");
    return kFailed;
  }
  std::int64_t rows = 0;
  for (const schema::CopiedTable& table : tables) rows += table.target.rows;
  console.out << "Copied " << rows << " rows of " << tables.size() << " tables to " << shown
              << "; both ends agree.\n";
  return kDone;
}

}  // namespace

void addCopy(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<CopyCommandOptions>();
  CLI::App& command =
      addCommand(app, "copy",
                 "Copy a company into an empty database, of the same or another engine, and "
                 "compare both ends; "
                 "a copy that was broken off goes on",
                 "kt7hr copy --from 'Driver=SQLite;Database=company.db' --to "
                 "'Driver=PostgreSQL;Server=127.0.0.1;Database=kt7;Uid=kt7;PwdFile=password.txt'");
  command.add_option("--from", given->from, "The database that holds the company")
      ->required()
      ->type_name("CONNECTION");
  command.add_option("--to", given->to, "The database to copy it into")
      ->required()
      ->type_name("CONNECTION");
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return copy(*given, line.console); }; });
}

}  // namespace kt7::cli
