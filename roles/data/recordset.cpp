#include "roles/data/recordset.h"

#include <algorithm>

#include <kt7/error.h>
#include "roles/data/connection.h"
#include "roles/sql/statement_text.h"

namespace kt7::data {

void Recordset::Open(const std::string& source, const ado::ActiveConnection& activeConnection, int,
                     int lockType, int) {
  if (rows_.shape() != nullptr) raiseStatementFailed("the recordset is already open");
  try {
    if (lockType == ado::kReadOnly && activeConnection.connection() == nullptr) {
      // The rows are on the client at once, so that the connection can go back at once.
      sessions_.take(activeConnection.connectionString(), {}, {})->query(source, rows_);
    } else if (activeConnection.connection() != nullptr) {
      openOn(ownConnection(*activeConnection.connection()).session(), source);
    } else {
      ownSession_ = sessions_.take(activeConnection.connectionString(), {}, {});
      openOn(ownSession_, source);
    }
  } catch (...) {
    release();
    throw;
  }
  writable_ = lockType != ado::kReadOnly;
}

void Recordset::openOn(const std::shared_ptr<Session>& session, const std::string& source) {
  session->query(source, rows_);
  source_ = source;
  session_ = session;
}

void Recordset::release() {
  discard();
  rows_.clear();
  position_ = 0;
  writable_ = false;
  table_.clear();
  keyColumn_.reset();
  insertText_.clear();
  session_.reset();
  ownSession_.reset();
}

void Recordset::Close() {
  requireOpen();
  release();
}

bool Recordset::Eof() const {
  requireOpen();
  return position_ >= rows_.rowCount();
}

void Recordset::MoveNext() {
  requireOpen();
  discard();
  requireRow();
  ++position_;
}

ado::Fields& Recordset::Fields() {
  requireOpen();
  return fields_;
}

ado::Field& Recordset::RowFields::Item(std::string_view name) {
  rows_.requireOpen();
  const ResultShape& shape = *rows_.rows_.shape();
  const int column = shape.find(name);
  if (column < 0) raiseStatementFailed("the result has no column '" + std::string(name) + "'");
  // They serve the results after this one too.
  fields_.reserve(shape.size());
  while (fields_.size() < shape.size()) fields_.emplace_back(rows_, fields_.size());
  return fields_[static_cast<std::size_t>(column)];
}

std::vector<Recordset::Assigned>::iterator Recordset::placeOf(std::size_t column) {
  return std::lower_bound(
      assigned_.begin(), assigned_.end(), column,
      [](const Assigned& assigned, std::size_t wanted) { return assigned.column < wanted; });
}

kt7::Value Recordset::read(std::size_t column) {
  requireColumn(column);
  if (const auto at = placeOf(column); at != assigned_.end() && at->column == column) {
    return at->value;
  }
  if (adding_) return {};
  requireRow();
  return rows_.value(position_, column);
}

void Recordset::assign(std::size_t column, const kt7::Value& value) {
  requireColumn(column);
  requireWritable();
  if (!adding_) requireRow();
  const auto at = placeOf(column);
  if (at != assigned_.end() && at->column == column) {
    at->value = value;
  } else {
    assigned_.insert(at, {column, value});
  }
}

void Recordset::discard() {
  adding_ = false;
  assigned_.clear();
}

void Recordset::AddNew() {
  requireOpen();
  requireWritable();
  discard();
  adding_ = true;
}

void Recordset::Update() {
  requireOpen();
  requireWritable();
  if (!adding_) requireRow();
  const std::shared_ptr<Session> standing = session();
  Session& target = *standing;
  std::vector<std::size_t> columns;
  std::vector<Stored> values;
  if (assigned_.empty()) return discard();
  columns.reserve(assigned_.size());
  values.reserve(assigned_.size() + 1);  // a row to write back is found by its key
  for (const auto& [column, value] : assigned_) {
    columns.push_back(column);
    values.push_back(target.stored(value, (*rows_.shape())[column].kind));
  }
  if (adding_) {
    insertRow(target, columns, values);
  } else {
    updateRow(target, columns, values);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) rows_.put(position_, columns[i], values[i]);
  discard();
}

const std::string& Recordset::insertText(std::span<const std::size_t> columns) {
  if (!insertText_.empty() &&
      std::equal(columns.begin(), columns.end(), insertColumns_.begin(), insertColumns_.end())) {
    return insertText_;
  }
  std::string places;
  insertText_ = "INSERT INTO " + table();
  for (const std::size_t column : columns) {
    insertText_.append(places.empty() ? "(" : ",").append(columnName(column));
    places.append(places.empty() ? "?" : ",?");
  }
  insertText_.append(") VALUES(").append(places).append(")");
  insertColumns_.assign(columns.begin(), columns.end());
  return insertText_;
}

void Recordset::insertRow(Session& target, std::span<const std::size_t> columns,
                          std::span<const Stored> values) {
  const int key = keyColumn();
  const bool given =
      key >= 0 && (*rows_.shape())[static_cast<std::size_t>(key)].kind == ColumnKind::Integer;
  const std::int64_t made =
      target.insert(insertText(columns), values,
                    given ? columnName(static_cast<std::size_t>(key)) : std::string());
  rows_.addRow();
  position_ = rows_.rowCount() - 1;
  if (given) rows_.put(position_, static_cast<std::size_t>(key), made);
}

void Recordset::updateRow(Session& target, std::span<const std::size_t> columns,
                          std::vector<Stored> values) {
  const int key = keyColumn();
  if (key < 0) {
    raiseStatementFailed("the rows of " + table() +
                         " cannot be written back: the result lacks their primary key");
  }
  std::string text;
  for (const std::size_t column : columns) {
    text.append(text.empty() ? "" : ",").append(columnName(column)).append("=?");
  }
  values.push_back(rows_.stored(position_, static_cast<std::size_t>(key)));
  const std::string sql = "UPDATE " + table() + " SET " + text + " WHERE " +
                          columnName(static_cast<std::size_t>(key)) + "=?";
  if (target.change(sql, values) == 0) {
    raiseStatementFailed("the row to write back is no longer there", {sql, 0, {}});
  }
}

std::shared_ptr<Session> Recordset::session() const {
  std::shared_ptr<Session> standing = session_.lock();
  if (!standing) raiseStatementFailed("the connection of the recordset is closed");
  return standing;
}

const std::string& Recordset::table() {
  if (table_.empty()) table_ = tableOfSelect(source_);
  if (table_.empty()) {
    raiseStatementFailed("the rows cannot be written back: their table is not known",
                         {source_, 0, {}});
  }
  return table_;
}

int Recordset::keyColumn() {
  if (keyColumn_) return *keyColumn_;
  const std::string key = session()->primaryKey(table());
  keyColumn_ = key.empty() ? -1 : rows_.shape()->find(key);
  return *keyColumn_;
}

void Recordset::requireOpen() const {
  if (rows_.shape() == nullptr) raiseStatementFailed("the recordset is closed");
}

void Recordset::requireColumn(std::size_t column) const {
  requireOpen();
  if (column >= rows_.shape()->size()) raiseStatementFailed("the field is not of this result");
}

void Recordset::requireWritable() const {
  if (!writable_) raiseStatementFailed("the recordset was opened for reading only");
}

void Recordset::requireRow() const {
  if (position_ >= rows_.rowCount()) raiseStatementFailed("the recordset has no current row");
}

}  // namespace kt7::data
