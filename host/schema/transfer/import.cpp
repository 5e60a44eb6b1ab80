#include "host/schema/transfer/import.h"

#include <algorithm>
#include <memory>

#include <kt7/error.h>
#include "base/text.h"
#include "host/csv/reader.h"
#include "host/data/contract/database.h"
#include "host/schema/description/table.h"
#include "host/schema/engine/row_ids.h"
#include "host/schema/engine/transaction.h"
#include "host/schema/transfer/cell.h"

namespace kt7::schema {
namespace {

constexpr std::size_t kMostProblems = 10;
constexpr std::size_t kRowsPerRecordset = 500;

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

std::string atLine(std::size_t line) { return "line " + std::to_string(line); }

const Table& importedTable(std::string_view name) {
  if (const Table* table = findTable(name)) {
    if (isCompanyData(*table)) return *table;
    throw ImportError(
        {table->name + " is kept by this system itself; nothing is imported into it"});
  }
  const std::string shown = shownCell(std::string(name));
  throw ImportError({findView(name) != nullptr ? shown + " is a view; rows are imported into tables"
                                               : "there is no table " + shown});
}

using Columns = std::vector<const Column*>;
using Problems = std::vector<std::string>;

/// The next row; false after the last one and where the file is no CSV, which is a problem.
bool nextRow(csv::Reader& reader, csv::Row& row, Problems& problems) {
  try {
    return reader.next(row);
  } catch (const csv::CsvError& error) {
    problems.push_back(atLine(error.line()) + ": " + error.what());
    return false;
  }
}

/// The columns that the first line names; every name that is unknown or repeated is a problem.
Columns namedColumns(const Table& table, csv::Reader& reader) {
  csv::Row header;
  Columns columns;
  Problems problems;
  if (!nextRow(reader, header, problems) && problems.empty()) {
    problems.push_back("the file is empty; its first line names the columns");
  }
  if (!problems.empty()) throw ImportError(std::move(problems));
  std::vector<std::string_view> known;
  for (const Column& column : table.columns) known.push_back(column.name);
  csv::Header named = csv::readHeader(header, table.name, known);
  if (!named.problems.empty()) throw ImportError(std::move(named.problems));
  for (const std::size_t column : named.columns) columns.push_back(&table.columns[column]);
  return columns;
}

/// The values of a row, or what is wrong with it.
std::vector<Value> readRow(const csv::Row& row, const Columns& columns, Problems& problems) {
  std::vector<Value> values;
  if (row.cells.size() != columns.size()) {
    problems.push_back(atLine(row.line) + ": " + std::to_string(row.cells.size()) +
                       " cells where the first line names " + std::to_string(columns.size()) +
                       " columns");
    return values;
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    auto cell = readCell(*columns[i], row.cells[i]);
    if (const auto* problem = std::get_if<CellProblem>(&cell)) {
      problems.push_back(atLine(row.line) + ", column " + columns[i]->name + ": " +
                         shownCell(row.cells[i]) + " " + problem->text);
    } else {
      values.push_back(std::move(std::get<Value>(cell)));
    }
  }
  return values;
}

/// What the database said of a row, in plain words where its key is taken.
std::string refusalText(const Error& error) {
  constexpr std::int32_t kSqliteUnique = 2067;
  constexpr std::int32_t kSqlitePrimaryKey = 1555;
  const DatabaseCause& cause = error.cause();
  // Other ways to SQLite give its text and a general code.
  const bool keyIsTaken =
      cause.nativeCode == kSqliteUnique || cause.nativeCode == kSqlitePrimaryKey ||
      cause.sqlState.starts_with("23") ||
      std::string_view(error.what()).find("UNIQUE constraint failed") != std::string_view::npos;
  return keyIsTaken ? "a row with this key is already there (" + std::string(error.what()) + ")"
                    : error.what();
}

/// Adds rows through recordsets of their own, so that no recordset grows with the file.
class RowWriter {
 public:
  RowWriter(ado::Connection& connection, const Table& table, const Columns& columns)
      : connection_(connection),
        table_(table),
        source_("SELECT * FROM " + table.name + " WHERE 1 = 0"),
        columns_(columns) {}

  void write(const std::vector<Value>& values) {
    if (rows_++ % kRowsPerRecordset == 0) open();
    if (!givesRowId(values)) finish();
    recordset_->AddNew();
    for (std::size_t i = 0; i < values.size(); ++i) {
      // The database gives a row id that the file leaves out.
      if (columns_[i]->type == ColumnType::RowId && values[i].isNull()) continue;
      recordset_->set(columns_[i]->name, values[i]);
    }
    recordset_->Update();
    idsGiven_ = idsGiven_ || givesRowId(values);
  }
  /// The database goes on after the row ids that the file gave.
  void finish() {
    if (idsGiven_) advanceRowIds(connection_, table_);
    idsGiven_ = false;
  }
  std::size_t rows() const { return rows_; }

 private:
  bool givesRowId(const std::vector<Value>& values) const {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (columns_[i]->type == ColumnType::RowId) return !values[i].isNull();
    }
    return false;
  }
  void open() {
    recordset_ = data::createRecordset();
    recordset_->Open(source_, connection_, ado::kStatic, ado::kOptimistic);
  }

  ado::Connection& connection_;
  const Table& table_;
  std::string source_;
  const Columns& columns_;
  std::unique_ptr<ado::Recordset> recordset_;
  std::size_t rows_ = 0;
  bool idsGiven_ = false;
};

std::size_t importRows(ado::Connection& connection, const Table& table, csv::Reader& reader) {
  const Columns columns = namedColumns(table, reader);
  RowWriter writer(connection, table, columns);
  Problems problems;
  for (csv::Row row; problems.size() < kMostProblems && nextRow(reader, row, problems);) {
    const std::vector<Value> values = readRow(row, columns, problems);
    if (!problems.empty()) continue;
    try {
      writer.write(values);
    } catch (const Error& error) {
      throw ImportError({atLine(row.line) + ": " + refusalText(error)});
    }
  }
  if (!problems.empty()) throw ImportError(std::move(problems));
  writer.finish();
  return writer.rows();
}

}  // namespace

ImportError::ImportError(std::vector<std::string> problems)
    : std::runtime_error(joined(problems)), problems_(std::move(problems)) {}

ImportResult importTableTR(ado::Connection& connection, std::string_view tableName,
                           std::istream& stream) {
  const Table& table = importedTable(tableName);
  csv::Reader reader(stream);
  return {table.name, importRows(connection, table, reader)};
}

ImportResult importTable(ado::Connection& connection, std::string_view tableName,
                         std::istream& stream) {
  Transaction transaction(connection);
  ImportResult result = importTableTR(connection, tableName, stream);
  transaction.commit();
  return result;
}

}  // namespace kt7::schema
