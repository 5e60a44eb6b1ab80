#include "host/schema/description/entered_text.h"

#include <utf8proc.h>

#include "host/csv/reader.h"
#include "support/sql_text.h"

namespace kt7::schema {

namespace {

/// Controls of both ranges, line separators, and what turns the direction of writing or is not seen
/// at all.
bool isUnseen(utf8proc_int32_t character) {
  switch (utf8proc_category(character)) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
      return true;
    default:
      return false;
  }
}

bool holdsUnseen(std::string_view text) {
  while (!text.empty()) {
    utf8proc_int32_t character = 0;
    const auto size = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                       static_cast<utf8proc_ssize_t>(text.size()), &character);
    if (size <= 0 || isUnseen(character)) return true;
    text.remove_prefix(static_cast<std::size_t>(size));
  }
  return false;
}

}  // namespace

std::optional<std::string> whyUnkept(const std::string& text, int length) {
  if (!csv::isValidText(text)) return "is not UTF-8 text";
  if (csv::characterCount(text) > static_cast<std::size_t>(length)) {
    return "is longer than " + std::to_string(length) + " characters";
  }
  return std::nullopt;
}

const char* whyUnplain(std::string_view text) {
  if (holdsUnseen(text)) return "holds a control character";
  if (text.find(kDateMarker) != std::string_view::npos) {
    return "holds \"#$\", the mark of a date";
  }
  return nullptr;
}

const char* whyNoCode(std::string_view text) {
  if (text.find_first_of("'\\") != std::string_view::npos) return "holds a quote or a backslash";
  return whyUnplain(text);
}

}  // namespace kt7::schema
