#include "display_text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "base/text.h"

namespace kt7::screens {

namespace {

struct Character {
  utf8proc_int32_t code = 0;
  std::size_t size = 0;
};

constexpr utf8proc_int32_t kReplacement = 0xFFFD;

/// The first character; of broken bytes one, as the replacement character.
Character firstOf(std::string_view text) {
  utf8proc_int32_t code = 0;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto size = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code);
  if (size <= 0) return {kReplacement, 1};
  return {code, static_cast<std::size_t>(size)};
}

/// What a terminal obeys instead of showing it: controls, and what turns the direction of writing.
bool isControl(utf8proc_int32_t code) {
  const auto category = utf8proc_category(code);
  if (category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_ZL ||
      category == UTF8PROC_CATEGORY_ZP) {
    return true;
  }
  switch (utf8proc_get_property(code)->bidi_class) {
    case UTF8PROC_BIDI_CLASS_LRE:
    case UTF8PROC_BIDI_CLASS_LRO:
    case UTF8PROC_BIDI_CLASS_RLE:
    case UTF8PROC_BIDI_CLASS_RLO:
    case UTF8PROC_BIDI_CLASS_PDF:
    case UTF8PROC_BIDI_CLASS_LRI:
    case UTF8PROC_BIDI_CLASS_RLI:
    case UTF8PROC_BIDI_CLASS_FSI:
    case UTF8PROC_BIDI_CLASS_PDI:
      return true;
    default:
      return false;
  }
}

/// Length in bytes of the characters at the front that fit in the cells, marks with their letter.
std::size_t bytesThatFit(std::string_view text, int cells) {
  std::size_t at = 0;
  for (int used = 0; at < text.size();) {
    const Character next = firstOf(text.substr(at));
    used += utf8proc_charwidth(next.code);
    if (used > cells) break;
    at += next.size;
  }
  return at;
}

/// Breaks one paragraph; the words of a line are joined by one blank.
void wrapParagraph(std::string_view paragraph, int width, std::vector<std::string>& lines) {
  std::string line;
  for (const std::string& piece : split(paragraph, ' ')) {
    std::string_view word = piece;
    if (!line.empty() && displayWidth(line) + 1 + displayWidth(word) <= width) {
      line.append(" ").append(word);
      continue;
    }
    if (!line.empty()) lines.push_back(std::move(line));
    while (displayWidth(word) > width) {
      const std::size_t size = bytesThatFit(word, width);
      lines.emplace_back(word.substr(0, size));
      word.remove_prefix(size);
    }
    line = word;
  }
  lines.push_back(std::move(line));
}

}  // namespace

std::string oneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  while (!text.empty()) {
    const Character next = firstOf(text);
    if (isControl(next.code)) {
      line += ' ';
    } else if (next.code == kReplacement) {
      line += "\xEF\xBF\xBD";
    } else {
      line += text.substr(0, next.size);
    }
    text.remove_prefix(next.size);
  }
  return line;
}

void escapeUnprintable(std::string& json) {
  const auto isPlain = [](char c) {
    return static_cast<unsigned char>(c) < 0x80 && (c == '\n' || std::iscntrl(c) == 0);
  };
  if (std::all_of(json.begin(), json.end(), isPlain)) return;
  std::string escaped;
  for (std::string_view text = json; !text.empty();) {
    const Character next = firstOf(text);
    if (next.code != '\n' && isControl(next.code)) {
      constexpr std::size_t kLongestEscape = 7;
      std::array<char, kLongestEscape> form{};
      // All of them have four hexadecimal digits at most.
      std::snprintf(form.data(), form.size(), "\\u%04x", static_cast<unsigned>(next.code));
      escaped += form.data();
    } else {
      escaped += text.substr(0, next.size);
    }
    text.remove_prefix(next.size);
  }
  json = std::move(escaped);
}

int displayWidth(std::string_view text) {
  int width = 0;
  while (!text.empty()) {
    const Character next = firstOf(text);
    width += utf8proc_charwidth(next.code);
    text.remove_prefix(next.size);
  }
  return width;
}

std::string fitted(std::string_view text, int width) {
  if (width <= 0) return {};
  std::string shown(text);
  if (displayWidth(text) > width) {
    shown = std::string(text.substr(0, bytesThatFit(text, width - 1))) + "…";
  }
  shown.append(static_cast<std::size_t>(width - displayWidth(shown)), ' ');
  return shown;
}

std::vector<std::string> wrapped(std::string_view text, int width) {
  std::vector<std::string> lines;
  for (const std::string& paragraph : split(text, '\n')) {
    wrapParagraph(trimmedBlanks(oneLine(paragraph)), std::max(width, 2), lines);
  }
  return lines;
}

std::string searchForm(std::string_view text) {
  std::string clean = oneLine(text);
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(clean.begin(), clean.end(), isAscii)) return lowerCase(clean);
  constexpr auto kOptions = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE |
                                                           UTF8PROC_COMPAT | UTF8PROC_CASEFOLD);
  utf8proc_uint8_t* form = nullptr;
  const auto size = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(clean.data()),
                                 static_cast<utf8proc_ssize_t>(clean.size()), &form, kOptions);
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(form, &std::free);
  if (size < 0) return clean;
  return std::string(reinterpret_cast<const char*>(form), static_cast<std::size_t>(size));
}

void eraseLastCharacter(std::string& text) {
  constexpr unsigned char kContinuationMask = 0xC0;
  constexpr unsigned char kContinuation = 0x80;
  while (!text.empty()) {
    const auto byte = static_cast<unsigned char>(text.back());
    text.pop_back();
    if ((byte & kContinuationMask) != kContinuation) break;
  }
}

}  // namespace kt7::screens
