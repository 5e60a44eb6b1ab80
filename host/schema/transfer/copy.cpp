#include "host/schema/transfer/copy.h"

#include <algorithm>
#include <optional>
#include <string>

#include <kt7/error.h>
#include "base/text.h"
#include "host/data/contract/bulk_insert.h"
#include "host/data/contract/database.h"
#include "host/schema/engine/engine_checks.h"
#include "host/schema/engine/row_ids.h"
#include "host/schema/engine/transaction.h"
#include "host/schema/state/schema.h"
#include "host/schema/transfer/table_reader.h"

namespace kt7::schema {
namespace {

std::vector<const Table*> companyTables() {
  std::vector<const Table*> result;
  for (const Table& table : tables()) {
    if (isCompanyData(table)) result.push_back(&table);
  }
  return result;
}

std::string keyOf(const Table& table) { return table.columns.front().name; }

/// The first column of a query of one row, null as nothing.
std::optional<std::int64_t> oneNumber(ado::Connection& connection, const std::string& expression,
                                      const Table& table) {
  const auto recordset = data::createRecordset();
  recordset->Open("SELECT " + expression + " AS Answer FROM " + table.name, connection,
                  ado::kStatic, ado::kReadOnly);
  const Value answer = recordset->get("Answer");
  if (answer.isNull()) return {};
  return static_cast<std::int64_t>(answer.toDouble());
}

std::int64_t countRows(ado::Connection& connection, const Table& table) {
  return oneNumber(connection, "COUNT(*)", table).value_or(0);
}

/// The tables of the target, marked as those of a copy before anything else is in them.
void makeTarget(ado::Connection& target, Engine engine) {
  const SchemaState state = schemaState(target, engine);
  if (state.kind != SchemaState::Kind::Absent && state.kind != SchemaState::Kind::UnfinishedCopy) {
    raiseStatementFailed("the target holds a company already; a copy goes into an empty database");
  }
  requireUnicode(target, engine);
  MakingTransaction transaction(target, engine);
  if (state.kind == SchemaState::Kind::Absent) {
    target.Execute(
        fittedToServer(createTableText(*findTable("KT7TSchema"), engine), target, engine));
    writeSchemaVersion(target, kCopyMark);
  }
  completeSchema(target, engine);
  requireByteOrder(target, engine);
  transaction.commit();
}

std::vector<std::string> columnNames(const Table& table) {
  std::vector<std::string> names;
  names.reserve(table.columns.size());
  for (const Column& column : table.columns) names.push_back(column.name);
  return names;
}

class Copy {
 public:
  Copy(ado::Connection& source, ado::Connection& target, CopyListener& listener,
       std::int64_t rowsOfTransaction)
      : source_(source),
        target_(target),
        listener_(listener),
        rowsOfTransaction_(rowsOfTransaction) {}

  void copyTables() {
    for (const Table* table : tables_) {
      total_ += countRows(source_, *table);
      done_ += countRows(target_, *table);
    }
    listener_.copied(done_, total_);
    for (const Table* table : tables_) {
      try {
        copyRows(*table);
        advanceRowIds(target_, *table);
      } catch (const Error& error) {
        // The statement itself has hundreds of rows: it would tell nobody anything.
        throw Error(error.kind(), error.number(), table->name + ": " + error.what(),
                    {"", error.cause().nativeCode, error.cause().sqlState});
      }
    }
  }

  std::vector<CopiedTable> compare() {
    std::vector<CopiedTable> result;
    result.reserve(tables_.size());
    for (const Table* table : tables_) {
      result.push_back({table, sumTable(source_, *table), sumTable(target_, *table)});
      listener_.compared(result.size(), tables_.size());
    }
    return result;
  }

 private:
  // Rows come and are kept in the order of their ids: what the target holds of a table is the
  // beginning of it, and the highest id there says where to go on.
  void copyRows(const Table& table) {
    TableReader reader(source_, table, oneNumber(target_, "MAX(" + keyOf(table) + ")", table));
    data::BulkInsert rows(target_, table.name, columnNames(table));
    for (auto row = reader.next(); !row.empty();) {
      Transaction transaction(target_);
      std::int64_t count = 0;
      for (; count < rowsOfTransaction_ && !row.empty(); row = reader.next(), ++count) {
        rows.add(row);
      }
      rows.flush();
      transaction.commit();
      listener_.copied(done_ += count, total_);
    }
  }

  ado::Connection& source_;
  ado::Connection& target_;
  CopyListener& listener_;
  std::int64_t rowsOfTransaction_;
  std::vector<const Table*> tables_ = companyTables();
  std::int64_t done_ = 0;
  std::int64_t total_ = 0;
};

}  // namespace

std::vector<CopiedTable> copyCompany(ado::Connection& source, ado::Connection& target,
                                     CopyListener& listener, std::int64_t rowsOfTransaction) {
  requireCurrentSchema(source, data::engineOn(source));
  makeTarget(target, data::engineOn(target));
  Copy copy(source, target, listener, rowsOfTransaction);
  copy.copyTables();
  std::vector<CopiedTable> result = copy.compare();
  if (std::ranges::all_of(result, &CopiedTable::same)) writeSchemaVersion(target, kSchemaVersion);
  return result;
}

}  // namespace kt7::schema
