#include "roles/sql/statement_kind.h"

#include <algorithm>
#include <array>

namespace kt7::data {

namespace {

/// Statements that begin so answer no rows on any engine.
constexpr std::array<std::string_view, 44> kWithoutRows{
    "ABORT",     "ALTER",    "ATTACH",  "BEGIN",      "CLOSE",    "CLUSTER",   "COMMENT",
    "COMMIT",    "COPY",     "CREATE",  "DEALLOCATE", "DETACH",   "DISCARD",   "DO",
    "DROP",      "END",      "FLUSH",   "GRANT",      "INSTALL",  "KILL",      "LISTEN",
    "LOAD",      "LOCK",     "MOVE",    "NOTIFY",     "PREPARE",  "PURGE",     "REASSIGN",
    "REFRESH",   "REINDEX",  "RELEASE", "RENAME",     "RESET",    "REVOKE",    "ROLLBACK",
    "SAVEPOINT", "SECURITY", "SET",     "START",      "TRUNCATE", "UNINSTALL", "UNLISTEN",
    "UNLOCK",    "USE"};

/// They answer rows only where they ask for them.
constexpr std::array<std::string_view, 5> kChanges{"INSERT", "UPDATE", "DELETE", "REPLACE",
                                                   "MERGE"};

constexpr std::array<std::string_view, 14> kCommitFirst{
    "ALTER", "BEGIN",  "CACHE", "CHANGE", "FLUSH",    "GRANT", "INSTALL",
    "LOCK",  "RENAME", "RESET", "REVOKE", "TRUNCATE", "START", "UNINSTALL"};
constexpr std::array<std::string_view, 4> kTableCare{"ANALYZE", "CHECK", "OPTIMIZE", "REPAIR"};
constexpr std::array<std::string_view, 4> kWordsOfTableCare{"TABLE", "TABLES", "LOCAL",
                                                            "NO_WRITE_TO_BINLOG"};

/// They begin a statement, and stand in no other one outside parentheses.
constexpr std::array<std::string_view, 16> kStatementWords{
    "INSERT", "UPDATE",  "DELETE",  "MERGE", "DROP",   "ALTER",    "CREATE", "TRUNCATE",
    "EXEC",   "EXECUTE", "DECLARE", "GRANT", "REVOKE", "SHUTDOWN", "BACKUP", "RESTORE"};
/// Statements that hold such words of themselves.
constexpr std::array<std::string_view, 5> kHoldStatementWords{"CREATE", "ALTER", "GRANT", "REVOKE",
                                                              "DENY"};

bool isOneOf(std::string_view word, std::span<const std::string_view> list) {
  return std::ranges::any_of(list,
                             [word](std::string_view entry) { return isWordOf(entry, word); });
}

class Words {
 public:
  Words(std::string_view sql, std::span<const Token> tokens) : sql_(sql), tokens_(tokens) {}

  std::size_t count() const { return tokens_.size(); }
  /// "" where there is none or it is no word.
  std::string_view operator[](std::size_t i) const {
    return i < tokens_.size() && tokens_[i].kind == TokenKind::Word ? text(i) : std::string_view{};
  }
  /// The place of the first of these words from `begin` on that stands in no parentheses; `count()`
  /// without one.
  std::size_t findOutside(std::span<const std::string_view> wanted, std::size_t begin = 0) const {
    int depth = 0;
    for (std::size_t i = begin; i < tokens_.size(); ++i) {
      if (tokens_[i].kind == TokenKind::Symbol)
        depth += text(i) == "(" ? 1 : text(i) == ")" ? -1 : 0;
      if (depth == 0 && isOneOf((*this)[i], wanted)) return i;
    }
    return count();
  }
  bool hasOutside(std::string_view wanted) const {
    return findOutside(std::span(&wanted, 1)) < count();
  }

 private:
  std::string_view text(std::size_t i) const {
    return sql_.substr(tokens_[i].begin, tokens_[i].length);
  }
  std::string_view sql_;
  std::span<const Token> tokens_;
};

/// The place of the word that says what a statement with named queries before it does.
std::size_t mainPlace(const Words& words) {
  if (!isWordOf("WITH", words[0])) return 0;
  constexpr std::array<std::string_view, 6> kMain{"SELECT", "INSERT",  "UPDATE",
                                                  "DELETE", "REPLACE", "MERGE"};
  return words.findOutside(kMain, 1);
}

std::string_view mainWord(const Words& words) { return words[mainPlace(words)]; }

}  // namespace

bool surelyWithoutRows(std::string_view sql, std::span<const Token> tokens, bool lexes) {
  const Words words(sql, tokens);
  if (isWordOf("SELECT", words[0])) return lexes && words.hasOutside("INTO");
  if (isOneOf(words[0], kWithoutRows)) return true;
  if (!lexes) return false;
  const std::string_view main = mainWord(words);
  if (isWordOf("SELECT", main)) return words.hasOutside("INTO");
  return isOneOf(main, kChanges) && !words.hasOutside("RETURNING");
}

bool holdsSecondStatement(std::string_view sql, std::span<const Token> tokens) {
  const Words words(sql, tokens);
  if (isOneOf(words[0], kHoldStatementWords)) return false;
  return words.findOutside(kStatementWords, mainPlace(words) + 1) < words.count();
}

bool commitsInMysql(std::string_view sql, std::span<const Token> tokens) {
  const Words words(sql, tokens);
  const std::string_view first = words[0];
  if (isWordOf("CREATE", first) || isWordOf("DROP", first)) {
    const bool orReplace = isWordOf("OR", words[1]) && isWordOf("REPLACE", words[2]);
    return !isWordOf("TEMPORARY", words[orReplace ? 3 : 1]);
  }
  if (isWordOf("SET", first)) {
    return words.hasOutside("PASSWORD") || words.hasOutside("AUTOCOMMIT");
  }
  if (isOneOf(first, kTableCare)) return isOneOf(words[1], kWordsOfTableCare);
  return isOneOf(first, kCommitFirst);
}

}  // namespace kt7::data
