#include "roles/data/snapshot.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include <kt7/error.h>
#include "base/text.h"

namespace kt7::data {

namespace {

constexpr std::size_t kKeptBuffers = 8;
constexpr std::size_t kKeptBytes = std::size_t{1} << 20;

std::uint64_t upToEightBytes(const char* from, std::size_t count) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, from, count);
  return bytes | 0x2020202020202020U;  // letter case does not count
}

// Columns of a table begin alike and often differ in their last characters only.
std::size_t nameHash(std::string_view name) {
  const std::size_t count = std::min<std::size_t>(name.size(), 8);
  std::uint64_t hash = upToEightBytes(name.data() + name.size() - count, count);
  hash = (hash ^ name.size()) * 0x9E3779B97F4A7C15U;
  if (name.size() > 8) {
    hash = (hash ^ upToEightBytes(name.data(), 8)) * 0x9E3779B97F4A7C15U;
  }
  return static_cast<std::size_t>(hash >> 32);
}

template <class Number>
bool fits(std::int64_t number) {
  return number >= std::numeric_limits<Number>::min() &&
         number <= std::numeric_limits<Number>::max();
}

Value narrowest(std::int64_t number) {
  if (fits<std::int32_t>(number)) return Value(static_cast<std::int32_t>(number));
  return Value(number);
}

}  // namespace

ColumnKind columnKind(std::string_view declaredType) {
  struct Row {
    std::string_view word;
    ColumnKind kind;
  };
  static constexpr Row kWords[] = {{"SMALLINT", ColumnKind::SmallInteger},
                                   {"INTEGER", ColumnKind::Integer},
                                   {"INT", ColumnKind::Integer},
                                   {"BIGINT", ColumnKind::Integer},
                                   {"REAL", ColumnKind::Real},
                                   {"DOUBLE", ColumnKind::Real},
                                   {"FLOAT", ColumnKind::Real},
                                   {"NUMERIC", ColumnKind::Money},
                                   {"DECIMAL", ColumnKind::Money},
                                   {"MONEY", ColumnKind::Money},
                                   {"DATE", ColumnKind::Day},
                                   {"TIMESTAMP", ColumnKind::Moment},
                                   {"DATETIME", ColumnKind::Moment},
                                   {"TEXT", ColumnKind::Text},
                                   {"VARCHAR", ColumnKind::Text},
                                   {"CHAR", ColumnKind::Text}};
  const std::string_view word = declaredType.substr(0, declaredType.find_first_of(" ("));
  for (const Row& row : kWords) {
    if (equalNoCase(row.word, word)) return row.kind;
  }
  return ColumnKind::Other;
}

ResultShape::ResultShape(std::vector<Column> columns) : columns_(std::move(columns)) {
  std::size_t slots = 4;
  while (slots < columns_.size() * 2) slots *= 2;
  slots_.assign(slots, -1);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    std::size_t slot = nameHash(columns_[i].name) & (slots - 1);
    while (slots_[slot] >= 0) slot = (slot + 1) & (slots - 1);
    slots_[slot] = static_cast<std::int16_t>(i);
  }
}

int ResultShape::find(std::string_view name) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t slot = nameHash(name) & mask; slots_[slot] >= 0; slot = (slot + 1) & mask) {
    const std::string& known = columns_[static_cast<std::size_t>(slots_[slot])].name;
    if (known == name || equalNoCase(known, name)) return slots_[slot];
  }
  return -1;
}

std::vector<std::unique_ptr<Snapshot::Buffers>>& Snapshot::store() {
  thread_local std::vector<std::unique_ptr<Buffers>> buffers;
  return buffers;
}

Snapshot::Snapshot() {
  if (store().empty()) {
    buffers_ = std::make_unique<Buffers>();
  } else {
    buffers_ = std::move(store().back());
    store().pop_back();
  }
}

Snapshot::~Snapshot() {
  clear();
  const std::size_t bytes = buffers_->cells.capacity() * sizeof(Cell) + buffers_->text.capacity();
  if (store().size() < kKeptBuffers && bytes <= kKeptBytes) store().push_back(std::move(buffers_));
}

void Snapshot::start(std::shared_ptr<const ResultShape> shape) {
  clear();
  shape_ = std::move(shape);
}

void Snapshot::clear() {
  shape_.reset();
  rows_ = 0;
  buffers_->cells.clear();
  buffers_->text.clear();
}

Cell* Snapshot::addRow() {
  const std::size_t first = buffers_->cells.size();
  buffers_->cells.resize(first + shape_->size());
  ++rows_;
  return buffers_->cells.data() + first;
}

void Snapshot::setText(Cell& cell, std::string_view text) {
  if (!fits<std::int32_t>(static_cast<std::int64_t>(text.size()))) raiseOverflow();
  cell.storage = Cell::Storage::Text;
  cell.length = static_cast<std::uint32_t>(text.size());
  cell.offset = buffers_->text.size();
  buffers_->text.append(text);
}

void Snapshot::put(std::size_t row, std::size_t column, const Stored& stored) {
  Cell& target = buffers_->cells[row * shape_->size() + column];
  target = Cell{};
  if (const auto* whole = std::get_if<std::int64_t>(&stored)) {
    target.storage = Cell::Storage::Integer;
    target.integer = *whole;
  } else if (const auto* number = std::get_if<double>(&stored)) {
    target.storage = Cell::Storage::Real;
    target.real = *number;
  } else if (const auto* money = std::get_if<Currency>(&stored)) {
    target.storage = Cell::Storage::Money;
    target.integer = money->tenThousandths();
  } else if (const auto* words = std::get_if<std::string>(&stored)) {
    setText(target, *words);
  }
}

Value Snapshot::value(std::size_t row, std::size_t column) const {
  const Cell& from = cell(row, column);
  const ColumnKind kind = (*shape_)[column].kind;
  switch (from.storage) {
    case Cell::Storage::Integer:
      return valueOfInteger(kind, from.integer);
    case Cell::Storage::Real:
      return valueOfReal(kind, from.real);
    case Cell::Storage::Money:
      return Currency::fromTenThousandths(from.integer);
    case Cell::Storage::Text:
      return valueOfText(kind, text(from));
    case Cell::Storage::Null:
      break;
  }
  return {};
}

Stored Snapshot::stored(std::size_t row, std::size_t column) const {
  const Cell& from = cell(row, column);
  switch (from.storage) {
    case Cell::Storage::Integer:
      return from.integer;
    case Cell::Storage::Real:
      return from.real;
    case Cell::Storage::Money:
      return Currency::fromTenThousandths(from.integer);
    case Cell::Storage::Text:
      return std::string(text(from));
    case Cell::Storage::Null:
      break;
  }
  return Null{};
}

std::int64_t Snapshot::whole(std::size_t row, std::size_t column) const {
  const Cell& from = cell(row, column);
  return from.storage == Cell::Storage::Integer ? from.integer : value(row, column).toInt32();
}

Value valueOfInteger(ColumnKind kind, std::int64_t number) {
  if (kind == ColumnKind::Money) return Currency::fromWhole(number);
  if (kind == ColumnKind::Real) return static_cast<double>(number);
  if (kind == ColumnKind::SmallInteger && fits<std::int16_t>(number)) {
    return static_cast<std::int16_t>(number);
  }
  return narrowest(number);
}

Value valueOfReal(ColumnKind kind, double number) {
  if (kind == ColumnKind::Money) return Currency::fromDouble(number);
  return number;
}

Value valueOfText(ColumnKind kind, std::string_view text) {
  if (kind == ColumnKind::Day || kind == ColumnKind::Moment) {
    // A server's moment may carry a fraction of a second and its zone: "... 10:00:00.25+07".
    constexpr std::size_t kToSeconds = 19;
    const bool finer =
        text.size() > kToSeconds &&
        (text[kToSeconds] == '.' || text[kToSeconds] == '+' || text[kToSeconds] == '-');
    Date date;
    if (Date::tryFromIsoText(finer ? text.substr(0, kToSeconds) : text, date)) return date;
  }
  return text;
}

}  // namespace kt7::data
