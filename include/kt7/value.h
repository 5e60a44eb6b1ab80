#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include <kt7/currency.h>
#include <kt7/date.h>
#include <kt7/export.h>

namespace kt7 {

struct Null {
  friend constexpr bool operator==(Null, Null) { return true; }
};

/// The value of a field: null, yes/no, a number, money, a date or a text. Conversions follow the
/// automation rules: a null or a text that is no number is a type mismatch, a number outside the
/// target's range an overflow; true counts as -1, a date as its day count.
class KT7_API Value {
 public:
  using Storage = std::variant<Null, bool, std::int16_t, std::int32_t, std::int64_t, double,
                               Currency, Date, std::string>;

  Value() = default;
  Value(bool value) : storage_(value) {}
  Value(std::int16_t value) : storage_(value) {}
  Value(std::int32_t value) : storage_(value) {}
  Value(std::int64_t value) : storage_(value) {}
  Value(double value) : storage_(value) {}
  Value(Currency value) : storage_(value) {}
  Value(Date value) : storage_(value) {}
  Value(std::string value) : storage_(std::move(value)) {}
  Value(std::string_view value) : storage_(std::string(value)) {}
  Value(const char* value) : storage_(std::string(value)) {}

  bool isNull() const { return std::holds_alternative<Null>(storage_); }
  const Storage& storage() const { return storage_; }

  bool toBool() const;
  std::int16_t toInt16() const;
  std::int32_t toInt32() const;
  double toDouble() const;
  Currency toCurrency() const;
  Date toDate() const;
  /// The value as text; a null is a type mismatch.
  std::string toText() const;
  /// The value joined with the empty text: a null becomes "".
  std::string joinedText() const;

  friend bool operator==(const Value&, const Value&) = default;

 private:
  Storage storage_;
};

}  // namespace kt7
