#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kt7 {

/// A decimal number filled with zeros on the left to the width.
std::string padded(int number, int width);
/// The shortest decimal text that reads back as the same double, never with an exponent below 1e21.
std::string shortestText(double value);
/// ASCII letters only; other bytes stay.
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);
bool equalNoCase(std::string_view a, std::string_view b);
std::string_view trimmedBlanks(std::string_view text);
/// The pieces between the separators; one empty piece for an empty text.
std::vector<std::string> split(std::string_view text, char separator);
/// The texts with the separator between each two.
std::string joined(std::span<const std::string> texts, std::string_view separator);
/// Every occurrence, from the first character on, exact case.
std::string replaceAll(std::string text, std::string_view from, std::string_view to);
/// The first `count` UTF-16 units of a UTF-8 text, never half a character.
std::string firstCharacters(std::string_view text, std::size_t count);

/// Reads digits and single characters off the front of a text.
class DigitReader {
 public:
  explicit DigitReader(std::string_view text) : rest_(text) {}
  /// Exactly `width` digits.
  bool number(std::size_t width, int& out);
  /// One to `widest` digits.
  bool numberUpTo(std::size_t widest, int& out);
  bool sign(char expected);
  bool atEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

}  // namespace kt7
