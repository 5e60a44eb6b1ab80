#include "host/data/contract/bulk_insert.h"

#include <algorithm>

#include <kt7/error.h>
#include "roles/data/connection.h"

namespace kt7::data {

namespace {

/// Below what every engine takes in one statement.
constexpr std::size_t kMostValues = 2000;
constexpr std::size_t kMostRows = 200;

std::string joined(std::span<const std::string> names) {
  std::string text;
  for (const std::string& name : names) text.append(text.empty() ? "" : ",").append(name);
  return text;
}

}  // namespace

BulkInsert::BulkInsert(ado::Connection& connection, const std::string& table,
                       std::vector<std::string> columns)
    : session_(*ownConnection(connection).session()),
      table_(table),
      columns_(std::move(columns)),
      rowsOfStatement_(std::clamp<std::size_t>(kMostValues / columns_.size(), 1, kMostRows)) {
  Snapshot none;
  session_.query("SELECT " + joined(columns_) + " FROM " + table_ + " WHERE 1 = 0", none);
  kinds_.reserve(columns_.size());
  for (std::size_t i = 0; i < columns_.size(); ++i) kinds_.push_back((*none.shape())[i].kind);
  fullText_ = text(rowsOfStatement_);
}

std::string BulkInsert::text(std::size_t rows) const {
  std::string places;
  for (std::size_t i = 0; i < columns_.size(); ++i) places += i == 0 ? "(?" : ",?";
  places += ')';
  std::string sql = "INSERT INTO " + table_ + " (" + joined(columns_) + ") VALUES ";
  for (std::size_t row = 0; row < rows; ++row) sql.append(row == 0 ? "" : ",").append(places);
  return sql;
}

void BulkInsert::add(std::span<const Value> row) {
  if (row.size() != columns_.size()) raiseStatementFailed("a row has not one value a column");
  for (std::size_t i = 0; i < row.size(); ++i) {
    values_.push_back(session_.stored(row[i], kinds_[i]));
  }
  if (values_.size() < rowsOfStatement_ * columns_.size()) return;
  session_.change(fullText_, values_);
  values_.clear();
}

void BulkInsert::flush() {
  if (values_.empty()) return;
  session_.change(text(values_.size() / columns_.size()), values_);
  values_.clear();
}

}  // namespace kt7::data
