#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kt7 {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::size_t bytesOfCharacter(unsigned char lead) {
  if (lead >= 0xF0) return 4;
  if (lead >= 0xE0) return 3;
  return lead >= 0xC0 ? 2 : 1;
}

}  // namespace

std::string padded(int number, int width) {
  std::string text = std::to_string(number);
  const auto wanted = static_cast<std::size_t>(width);
  if (text.size() < wanted) text.insert(0, wanted - text.size(), '0');
  return text;
}

std::string shortestText(double value) {
  char buffer[400];
  const auto format =
      std::fabs(value) < 1e21 ? std::chars_format::fixed : std::chars_format::general;
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, format);
  return std::string(buffer, result.ptr);
}

std::string upperCase(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), upper);
  return out;
}

std::string lowerCase(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), lower);
  return out;
}

bool equalNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return x == y || upper(x) == upper(y);
         });
}

std::string_view trimmedBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(separator, from)) != std::string_view::npos; from = at + 1) {
    pieces.emplace_back(text.substr(from, at - from));
  }
  pieces.emplace_back(text.substr(from));
  return pieces;
}

std::string joined(std::span<const std::string> texts, std::string_view separator) {
  std::string all;
  for (const std::string& text : texts) {
    if (&text != texts.data()) all.append(separator);
    all.append(text);
  }
  return all;
}

std::string replaceAll(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

std::string firstCharacters(std::string_view text, std::size_t count) {
  std::size_t bytes = 0;
  while (bytes < text.size()) {
    const std::size_t length = bytesOfCharacter(static_cast<unsigned char>(text[bytes]));
    const std::size_t units = length == 4 ? 2 : 1;
    if (units > count) break;
    count -= units;
    bytes += length;
  }
  return std::string(text.substr(0, bytes));
}

bool DigitReader::number(std::size_t width, int& out) {
  if (rest_.size() < width) return false;
  const std::string_view digits = rest_.substr(0, width);
  if (!std::all_of(digits.begin(), digits.end(), isDigit)) return false;
  std::from_chars(digits.data(), digits.data() + width, out);
  rest_.remove_prefix(width);
  return true;
}

bool DigitReader::numberUpTo(std::size_t widest, int& out) {
  std::size_t width = 0;
  while (width < widest && width < rest_.size() && isDigit(rest_[width])) ++width;
  return width > 0 && number(width, out);
}

bool DigitReader::sign(char expected) {
  if (rest_.empty() || rest_.front() != expected) return false;
  rest_.remove_prefix(1);
  return true;
}

}  // namespace kt7
