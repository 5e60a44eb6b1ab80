#include "code_argument.h"

#include <algorithm>

#include "base/text.h"
#include "fronts/cli/commands/command.h"
#include "host/csv/reader.h"

namespace kt7::cli {

namespace {

constexpr std::size_t kLongestCode = 60;

/// What keeps a text from being a code; null for a code.
const char* whyNoCode(const std::string& text) {
  if (text.empty()) return "is empty";
  if (!csv::isValidText(text)) return "is no UTF-8";
  if (text.find_first_of("'\"`\\") != std::string::npos) return "holds a quote or a backslash";
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
  if (std::any_of(text.begin(), text.end(), isControl)) return "holds a control character";
  if (trimmedBlanks(text) != text) return "has blanks around it";
  if (firstCharacters(text, kLongestCode) != text) return "is longer than 60 characters";
  return nullptr;
}

}  // namespace

const std::string& checkedCode(const std::string& code, const std::string& what) {
  if (const char* why = whyNoCode(code)) {
    throw WrongUse("'" + code + "' is no code of " + what + ": it " + why);
  }
  return code;
}

}  // namespace kt7::cli
