#include "host/schema/description/table.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "host/schema/description/table_groups.h"

namespace kt7::schema {

Column code(std::string name) { return {std::move(name), ColumnType::Text, kCodeLength, true}; }
Column text(std::string name, int length) { return {std::move(name), ColumnType::Text, length}; }
Column money(std::string name) { return {std::move(name), ColumnType::Money}; }
Column number(std::string name) { return {std::move(name), ColumnType::Number}; }
Column date(std::string name) { return {std::move(name), ColumnType::Date}; }
Column moment(std::string name) { return {std::move(name), ColumnType::Moment}; }
Column small(std::string name) { return {std::move(name), ColumnType::Small}; }
Column whole(std::string name) { return {std::move(name), ColumnType::Whole}; }

Index unique(std::string columns) { return {std::move(columns), true}; }
Index index(std::string columns) { return {std::move(columns), false}; }

void appendNumbered(std::vector<Column>& columns, const Column& stem, int first, int last) {
  for (int i = first; i <= last; ++i) {
    columns.push_back({stem.name + std::to_string(i), stem.type, stem.length});
  }
}

Table table(std::string name, const std::string& prefix, std::vector<Column> columns,
            std::vector<Index> indexes) {
  columns.insert(columns.begin(), Column{prefix + "RowID", ColumnType::RowId});
  return {std::move(name), std::move(columns), std::move(indexes)};
}

Table marked(std::string name, const std::string& prefix, std::vector<Column> columns,
             std::vector<Index> indexes) {
  columns.push_back(small(prefix + "Flag1"));
  columns.push_back(moment(prefix + "Flag3"));
  return table(std::move(name), prefix, std::move(columns), std::move(indexes));
}

std::span<const Table> tables() {
  static const std::vector<Table> all = [] {
    std::vector<Table> result;
    // The version's table comes first: tables without it were not made here.
    for (auto group :
         {versionTables, employeeTables, personalRecordTables, documentTables, organisationTables,
          employeeTypeTables, rateTables, slipTables, calendarTables, hostTables}) {
      std::ranges::move(group(), std::back_inserter(result));
    }
    return result;
  }();
  return all;
}

namespace {

template <typename Row>
const Row* findByName(std::span<const Row> rows, std::string_view name) {
  const auto found =
      std::ranges::find_if(rows, [&](const Row& row) { return equalNoCase(row.name, name); });
  return found == rows.end() ? nullptr : &*found;
}

}  // namespace

bool isCompanyData(const Table& table) {
  return table.name != "KT7TSchema" && table.name != "KT7TRunLease";
}

const Table* findTable(std::string_view name) { return findByName(tables(), name); }

const View* findView(std::string_view name) { return findByName(views(), name); }

const Column* findColumn(const Table& table, std::string_view name) {
  return findByName(std::span<const Column>(table.columns), name);
}

}  // namespace kt7::schema
