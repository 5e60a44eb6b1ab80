#include "host/schema/transfer/table_reader.h"

#include "host/data/contract/database.h"

namespace kt7::schema {

namespace {

constexpr std::size_t kRowsOfPage = 1000;

}  // namespace

std::string columnList(const Table& table) {
  std::string text;
  for (const Column& column : table.columns) text += (text.empty() ? "" : ", ") + column.name;
  return text;
}

TableReader::TableReader(ado::Connection& connection, const Table& table,
                         std::optional<std::int64_t> after)
    : connection_(connection),
      table_(table),
      columns_(columnList(table)),
      after_(after),
      row_(table.columns.size()) {}

bool TableReader::openPage() {
  const std::string& key = table_.columns.front().name;
  page_ = data::createRecordset();
  page_->Open("SELECT TOP " + std::to_string(kRowsOfPage) + " " + columns_ + " FROM " +
                  table_.name + (after_ ? " WHERE " + key + ">" + std::to_string(*after_) : "") +
                  " ORDER BY " + key,
              connection_, ado::kStatic, ado::kReadOnly);
  rowsOfPage_ = 0;
  fields_.clear();
  for (const Column& column : table_.columns) {
    fields_.push_back(&page_->Fields().Item(column.name));
  }
  return !page_->Eof();
}

std::span<const Value> TableReader::next() {
  if (page_ != nullptr && page_->Eof()) {
    if (rowsOfPage_ < kRowsOfPage) return {};
    page_.reset();
  }
  if (page_ == nullptr && !openPage()) return {};
  for (std::size_t i = 0; i < fields_.size(); ++i) row_[i] = fields_[i]->Value();
  after_ = row_.front().toInt32();
  ++rowsOfPage_;
  page_->MoveNext();
  return row_;
}

}  // namespace kt7::schema
