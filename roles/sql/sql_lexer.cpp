#include "roles/sql/sql_lexer.h"

#include <algorithm>

namespace kt7::data {

namespace {

constexpr std::string_view kSingleSymbols = "()+-*/%,;.=<>&|~:[]";
constexpr std::string_view kSecondSymbols = "=>|<:";
constexpr std::string_view kDoubleSymbols[] = {
    "<=", ">=", "<>", "!=", "==", "||", "<<", ">>", "::"};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool startsWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}
/// What stands between "--" and the end of its line. Without a blank before it some engines take
/// the
/// "--" for two signs, and some end it at a carriage return: a statement may follow.
bool isSurelyComment(std::string_view text) {
  if (text.find(';') == std::string_view::npos) return true;
  if (text.ends_with('\r')) text.remove_suffix(1);
  return isBlank(text.front()) && text.find('\r') == std::string_view::npos;
}

class Lexer {
 public:
  explicit Lexer(std::string_view sql) : sql_(sql) {}

  /// Past blanks and comments; false for a comment that does not end.
  bool skipBlanks() {
    for (;;) {
      while (isBlank(look(0))) ++at_;
      if (look(0) == '-' && look(1) == '-') {
        const std::size_t end = std::min(sql_.find('\n', at_), sql_.size());
        if (!isSurelyComment(sql_.substr(at_ + 2, end - at_ - 2))) return false;
        at_ = end;
      } else if (look(0) == '/' && look(1) == '*') {
        const std::size_t close = sql_.find("*/", at_ + 2);
        if (close == std::string_view::npos) return false;
        const std::string_view inside = sql_.substr(at_ + 2, close - at_ - 2);
        // Some engines run what stands in such a comment, some let comments lie in one another.
        if (inside.starts_with('!') || inside.starts_with("M!") ||
            inside.find("/*") != std::string_view::npos) {
          return false;
        }
        at_ = close + 2;
      } else {
        return true;
      }
    }
  }

  bool atEnd() const { return at_ == sql_.size(); }
  bool take(char c) {
    if (look(0) != c) return false;
    ++at_;
    return true;
  }

  bool next(Token& token) {
    token.begin = at_;
    if (!read(token.kind)) return false;
    token.length = at_ - token.begin;
    return true;
  }

 private:
  char look(std::size_t ahead) const {
    return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0';
  }

  bool read(TokenKind& kind) {
    const char c = look(0);
    if (startsWord(c)) return readWord(kind);
    if (isDigit(c) || (c == '.' && isDigit(look(1)))) return readNumber(kind);
    if (c == '\'' || c == '"' || c == '`') {
      kind = c == '\'' ? TokenKind::Text : TokenKind::Name;
      return readQuoted(c);
    }
    if (c == '?' || ((c == ':' || c == '@' || c == '$') && continuesWord(look(1)))) {
      kind = TokenKind::Parameter;
      const std::size_t begin = at_++;
      skipWord();
      // "$tag$" begins a quoted text of its own kind
      return c != '$' ||
             sql_.substr(begin + 1, at_ - begin - 1).find('$') == std::string_view::npos;
    }
    return readSymbol(kind);
  }

  bool readWord(TokenKind& kind) {
    const std::size_t begin = at_;
    skipWord();
    kind = TokenKind::Word;
    if (look(0) != '\'') return true;
    const std::string_view prefix = sql_.substr(begin, at_ - begin);
    if (prefix == "e" || prefix == "E") return false;  // backslashes may escape quotes in it
    if (prefix != "x" && prefix != "X") return true;
    kind = TokenKind::Blob;
    return readQuoted('\'');
  }

  bool readNumber(TokenKind& kind) {
    kind = TokenKind::Number;
    while (isDigit(look(0)) || look(0) == '.') ++at_;
    if (look(0) == 'e' || look(0) == 'E') {
      ++at_;
      if (look(0) == '+' || look(0) == '-') ++at_;
      if (!isDigit(look(0))) return false;
      while (isDigit(look(0))) ++at_;
    }
    return !continuesWord(look(0));
  }

  bool readQuoted(char quote) {
    for (++at_; at_ < sql_.size(); ++at_) {
      if (sql_[at_] == '\0') return false;
      if (sql_[at_] != quote) continue;
      ++at_;
      if (look(0) != quote) return true;
    }
    return false;
  }

  bool readSymbol(TokenKind& kind) {
    kind = TokenKind::Symbol;
    if (kSecondSymbols.find(look(1)) != std::string_view::npos) {
      const std::string_view both = sql_.substr(at_, 2);
      if (std::find(std::begin(kDoubleSymbols), std::end(kDoubleSymbols), both) !=
          std::end(kDoubleSymbols)) {
        at_ += 2;
        return true;
      }
    }
    if (look(0) == '[') {  // another way to quote a name; a server's array index is left alone
      const std::size_t close = sql_.find(']', at_);
      if (close == std::string_view::npos) return false;
      const std::string_view inside = sql_.substr(at_ + 1, close - at_ - 1);
      // A server's array may hold quoted texts.
      if (inside.find_first_of("'\"[$") != std::string_view::npos) return false;
      kind = TokenKind::Name;
      at_ = close + 1;
      return true;
    }
    if (kSingleSymbols.find(look(0)) == std::string_view::npos) return false;
    ++at_;
    return true;
  }

  void skipWord() {
    while (at_ < sql_.size() && continuesWord(sql_[at_])) ++at_;
  }

  std::string_view sql_;
  std::size_t at_ = 0;
};

}  // namespace

bool continuesWord(char c) { return startsWord(c) || isDigit(c) || c == '$'; }

namespace {

template <class Take>
bool readTokens(std::string_view sql, Take take) {
  Lexer lexer(sql);
  for (;;) {
    if (!lexer.skipBlanks()) return false;
    if (lexer.atEnd()) return true;
    Token token;
    if (!lexer.next(token)) return false;
    if (!take(token)) return true;
  }
}

}  // namespace

bool lexSql(std::string_view sql, std::vector<Token>& tokens) {
  tokens.clear();
  return readTokens(sql, [&tokens](const Token& token) {
    tokens.push_back(token);
    return true;
  });
}

bool lexSql(std::string_view sql, const std::function<bool(const Token&)>& take) {
  return readTokens(sql, take);
}

bool isBlankSql(std::string_view rest) {
  Lexer lexer(rest);
  do {
    if (!lexer.skipBlanks()) return false;
  } while (lexer.take(';'));
  return lexer.atEnd();
}

}  // namespace kt7::data
