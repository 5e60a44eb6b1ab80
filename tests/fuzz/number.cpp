#include <charconv>
#include <cmath>

#include "reads_back.h"
#include "roles/texts/number_text.h"

namespace kt7::fuzz {

namespace {

void isReadAsWritten(double number) {
  char digits[32];
  const std::string written(digits, std::to_chars(digits, std::end(digits), number).ptr);
  require(std::isfinite(number), "a number is finite");
  require(roles::numberInText(written) == number, "a number reads as it was written", written);
  require(Value(written).toDouble() == number, "a value reads as it was written", written);
  // A joined text keeps 15 digits at least; what it keeps it keeps for good.
  const std::string joined = Value(number).toText();
  const auto again = unlessRefused([&] { return Value(Value(joined).toDouble()).toText(); });
  require(!again || *again == joined, "a joined number stays", joined);
}

void isNearest(Currency amount, const std::string& text) {
  require(Currency::fromText(amount.toText()) == amount, "an amount reads as it was written");
  require(Currency::fromText(Value(amount).toText()) == amount, "a joined amount is the same");
  const double exact = std::strtod(text.c_str(), nullptr);
  require(std::fabs(amount.toDouble() - exact) <= 0.000051 + std::fabs(exact) * 1e-15,
          "an amount is the nearest to its text", amount.toText());
}

}  // namespace

void enter(std::string_view given) {
  const std::string text(given);
  if (const auto number = unlessRefused([&] { return roles::numberInText(text); })) {
    isReadAsWritten(*number);
  }
  if (const auto number = unlessRefused([&] { return Value(text).toDouble(); })) {
    isReadAsWritten(*number);
  }
  if (const auto amount = unlessRefused([&] { return Currency::fromText(text); })) {
    isNearest(*amount, text);
  }
  using enum schema::ColumnType;
  for (const schema::ColumnType type : {Money, Number, Small, Whole, RowId}) readsBack(type, text);
}

}  // namespace kt7::fuzz
