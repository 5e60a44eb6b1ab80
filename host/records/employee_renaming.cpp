#include "employee_renaming.h"

#include <algorithm>

#include "base/text.h"
#include "host/data/contract/database.h"
#include "host/schema/description/table.h"
#include "schema/employee_code_columns.h"

namespace kt7::cli {

namespace {

/// A column that refers to the employee's code is named after it.
bool isNamedAfterEmployeeCode(const schema::Column& column) {
  constexpr std::string_view kKey = "TEmpCode";
  const std::string& name = column.name;
  return name.size() >= kKey.size() &&
         equalNoCase(std::string_view(name).substr(name.size() - kKey.size()), kKey);
}

bool isOfOperation(const std::string& table, const std::string& column) {
  return std::any_of(schema::kEmployeeCodeColumns.begin(), schema::kEmployeeCodeColumns.end(),
                     [&](const schema::EmployeeCodeColumn& each) {
                       return equalNoCase(each.table, table) && equalNoCase(each.column, column);
                     });
}

/// Tables and rows that hold a code, as "KT7TEmployee 1, KT7TEmpSlipDoc 6".
std::string listOf(const std::vector<CodeRows>& counts) {
  std::vector<std::string> places;
  for (const CodeRows& each : counts) {
    if (each.rows != 0) places.push_back(each.place.table + " " + std::to_string(each.rows));
  }
  return joined(places, ", ");
}

}  // namespace

std::vector<CodePlace> codePlaces() {
  std::vector<CodePlace> places;
  places.reserve(schema::kEmployeeCodeColumns.size());
  for (const schema::EmployeeCodeColumn& each : schema::kEmployeeCodeColumns) {
    places.push_back({std::string(each.table), std::string(each.column), true});
  }
  for (const schema::Table& table : schema::tables()) {
    for (const schema::Column& column : table.columns) {
      if (!isNamedAfterEmployeeCode(column) || isOfOperation(table.name, column.name)) continue;
      places.push_back({table.name, column.name, false});
    }
  }
  return places;
}

std::vector<CodeRows> countCode(ado::Connection& connection, const std::string& code) {
  std::vector<CodeRows> counts;
  for (CodePlace& place : codePlaces()) {
    const Value rows = data::askOne(
        connection, "SELECT COUNT(*) AS A FROM " + place.table + " WHERE " + place.column + "=?",
        std::span(&code, 1));
    counts.push_back({std::move(place), static_cast<std::int64_t>(rows.toDouble())});
  }
  return counts;
}

void requireRenamable(ado::Connection& connection, const std::string& from, const std::string& to) {
  const Value employee = data::askOne(
      connection, "SELECT TEmpCode FROM KT7TEmployee WHERE TEmpCode=?", std::span(&from, 1));
  if (employee.isNull()) throw RenamingRefused("there is no employee '" + from + "'");
  const std::string taken = listOf(countCode(connection, to));
  if (!taken.empty()) {
    throw RenamingRefused("the code '" + to + "' is taken: " + taken + "; nothing was changed");
  }
}

void renameEmployee(_HRObject& hr, host::HostDataObj& dataObj, const std::string& from,
                    const std::string& to) {
  dataObj.BeginTransaction();
  try {
    requireRenamable(dataObj.Connection(), from, to);
    std::string newCode = to;
    hr.RenameEmployeeCodeTR(dataObj, from, newCode);
    for (const CodePlace& place : codePlaces()) {
      if (place.byOperation) continue;
      std::string sql = "UPDATE " + place.table + " SET ";
      sql.append(place.column).append("='").append(to).append("' WHERE ");
      dataObj.ExecuteSql(sql.append(place.column).append("='").append(from).append("'"));
    }
    dataObj.CommitTransaction();
  } catch (...) {
    dataObj.reset(dataObj.opens());
    throw;
  }
}

}  // namespace kt7::cli
