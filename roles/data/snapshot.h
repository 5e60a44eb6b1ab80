#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <kt7/value.h>

namespace kt7::data {

/// What a column was declared to hold; it decides how a stored value is read and written.
enum class ColumnKind : std::uint8_t {
  Other,
  SmallInteger,
  Integer,
  Real,
  Money,
  Day,
  Moment,
  Text
};

/// The kind of a declared type such as "NUMERIC(19,4)", without regard to letter case.
ColumnKind columnKind(std::string_view declaredType);

struct Column {
  std::string name;
  ColumnKind kind = ColumnKind::Other;
};

/// The columns of a result; made once for a prepared statement and shared by its snapshots.
class ResultShape {
 public:
  explicit ResultShape(std::vector<Column> columns);

  std::size_t size() const { return columns_.size(); }
  const Column& operator[](std::size_t index) const { return columns_[index]; }
  /// The first column of that name without regard to letter case; -1 when there is none.
  int find(std::string_view name) const;

 private:
  std::vector<Column> columns_;
  std::vector<std::int16_t> slots_;
};

/// A value as the engine stores it. Texts lie in the arena of their snapshot.
struct Cell {
  /// Money is a count of ten-thousandths, for engines whose decimals are exact.
  enum class Storage : std::uint8_t { Null, Integer, Real, Money, Text };
  Storage storage = Storage::Null;
  std::uint32_t length = 0;
  union {
    std::int64_t integer = 0;
    double real;
    std::uint64_t offset;
  };
};

/// A value in one of the forms that an engine stores: null, int64, double, exact money or text.
using Stored = std::variant<Null, std::int64_t, double, Currency, std::string>;

/// All rows of one result, on the client. Buffers come from and go back to a store of the thread.
class Snapshot {
 public:
  Snapshot();
  ~Snapshot();
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

  void start(std::shared_ptr<const ResultShape> shape);
  void clear();

  const ResultShape* shape() const { return shape_.get(); }
  std::size_t rowCount() const { return rows_; }

  /// A new row of nulls; its cells are valid until the next row.
  Cell* addRow();
  void setText(Cell& cell, std::string_view text);
  void put(std::size_t row, std::size_t column, const Stored& stored);
  Value value(std::size_t row, std::size_t column) const;
  Stored stored(std::size_t row, std::size_t column) const;
  /// A whole number of any size, such as a key.
  std::int64_t whole(std::size_t row, std::size_t column) const;

 private:
  struct Buffers {
    std::vector<Cell> cells;
    std::string text;
  };
  static std::vector<std::unique_ptr<Buffers>>& store();

  const Cell& cell(std::size_t row, std::size_t column) const {
    return buffers_->cells[row * shape_->size() + column];
  }
  std::string_view text(const Cell& cell) const {
    return std::string_view(buffers_->text)
        .substr(static_cast<std::size_t>(cell.offset), cell.length);
  }

  std::shared_ptr<const ResultShape> shape_;
  std::unique_ptr<Buffers> buffers_;
  std::size_t rows_ = 0;
};

/// What a whole number, a double or a text of a column of that kind means.
Value valueOfInteger(ColumnKind kind, std::int64_t number);
Value valueOfReal(ColumnKind kind, double number);
Value valueOfText(ColumnKind kind, std::string_view text);

}  // namespace kt7::data
