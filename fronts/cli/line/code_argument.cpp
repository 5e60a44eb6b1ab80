#include "code_argument.h"

#include "base/text.h"
#include "fronts/cli/line/console.h"
#include "host/schema/description/entered_text.h"
#include "host/schema/description/table_groups.h"

namespace kt7::cli {

namespace {

/// What keeps a text from being found as a code; "" for one that can be.
std::string whyUnknown(const std::string& text) {
  if (text.empty()) return "is empty";
  if (const auto why = schema::whyUnkept(text, schema::kCodeLength)) return *why;
  const bool isQuoted = text.find_first_of("'\"`\\") != std::string::npos;
  return isQuoted ? "holds a quote or a backslash" : "";
}

std::string whyNoCode(const std::string& text) {
  std::string why = whyUnknown(text);
  if (!why.empty()) return why;
  if (trimmedBlanks(text) != text) return "has blanks around it";
  const char* const unplain = schema::whyNoCode(text);
  return unplain != nullptr ? unplain : "";
}

const std::string& requireNone(const std::string& why, const std::string& code,
                               const std::string& what) {
  if (why.empty()) return code;
  throw WrongUse("'" + code + "' is no code of " + what + ": it " + why);
}

}  // namespace

const std::string& newCode(const std::string& code, const std::string& what) {
  return requireNone(whyNoCode(code), code, what);
}

const std::string& knownCode(const std::string& code, const std::string& what) {
  return requireNone(whyUnknown(code), code, what);
}

const std::string& newText(const std::string& text, const std::string& what,
                           const std::string& table, const std::string& column) {
  const int length = schema::findColumn(*schema::findTable(table), column)->length;
  const auto unkept = schema::whyUnkept(text, length);
  if (unkept) throw WrongUse("the " + what + " " + *unkept);
  const char* const unplain = schema::whyUnplain(text);
  if (unplain != nullptr) throw WrongUse("the " + what + " '" + text + "' " + unplain);
  return text;
}

}  // namespace kt7::cli
