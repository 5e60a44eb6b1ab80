#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace kt7::data {

enum class TokenKind : std::uint8_t { Word, Number, Text, Name, Blob, Parameter, Symbol };

/// A piece of an SQL text by its place in it; blanks and comments are between tokens. `Text` is
/// in single quotes, `Name` in any other.
struct Token {
  TokenKind kind = TokenKind::Symbol;
  std::size_t begin = 0;
  std::size_t length = 0;
  std::size_t end() const { return begin + length; }
};

/// Whether `word` is that keyword, whatever the letter case. Most differ in their length or first
/// letter already.
inline bool isWordOf(std::string_view keyword, std::string_view word) {
  constexpr int kLetterCase = 0x20;
  return keyword.size() == word.size() && ((keyword[0] ^ word[0]) & ~kLetterCase) == 0 &&
         equalNoCase(keyword, word);
}

/// Whether a word, and the name of a parameter, goes on with that byte.
bool continuesWord(char c);

/// Cuts the text into tokens. False for a quote or comment that does not end and for anything that
/// is not surely understood; nothing may then be concluded from the tokens.
bool lexSql(std::string_view sql, std::vector<Token>& tokens);

/// The same token by token, until `take` has had enough and answers false.
bool lexSql(std::string_view sql, const std::function<bool(const Token&)>& take);

/// True when only blanks, comments and semicolons are left.
bool isBlankSql(std::string_view rest);

}  // namespace kt7::data
