#include "roles/texts/lookup_statement.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace kt7::roles {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::array<std::string_view, 4> kTailWords{"GROUP", "HAVING", "ORDER", "LIMIT"};

/// Where the clauses of "table [WHERE …] [ORDER BY …]" begin; kNone where there is no such clause.
struct Clauses {
  std::size_t where = kNone;
  std::size_t tail = kNone;
};

bool isWordByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

std::size_t wordEnd(std::string_view text, std::size_t at) {
  while (at < text.size() && isWordByte(text[at])) ++at;
  return at;
}

std::size_t pastQuoted(std::string_view text, std::size_t at) {
  const std::size_t close = text.find(text[at], at + 1);
  return close == kNone ? text.size() : close + 1;
}

bool isTailWord(std::string_view word) {
  return std::any_of(kTailWords.begin(), kTailWords.end(),
                     [word](std::string_view tail) { return equalNoCase(word, tail); });
}

Clauses clausesOf(std::string_view table) {
  Clauses clauses;
  int depth = 0;
  for (std::size_t at = 0; at < table.size();) {
    const char c = table[at];
    if (c == '\'' || c == '"' || c == '`') {
      at = pastQuoted(table, at);
      continue;
    }
    if (!isWordByte(c)) {
      depth += c == '(' ? 1 : c == ')' ? -1 : 0;
      ++at;
      continue;
    }
    const std::size_t end = wordEnd(table, at);
    const std::string_view word = table.substr(at, end - at);
    if (depth == 0 && isTailWord(word)) {
      clauses.tail = at;
      return clauses;
    }
    if (depth == 0 && clauses.where == kNone && equalNoCase(word, "WHERE")) clauses.where = at;
    at = end;
  }
  return clauses;
}

}  // namespace

void writeLookupStatement(std::string& sql, std::string_view resultColumn,
                          std::string_view keyColumn, std::string_view table) {
  constexpr std::size_t kWhereWidth = 5;
  sql.assign("SELECT ").append(resultColumn).append(" FROM ");
  const Clauses clauses = table.find(' ') == kNone ? Clauses{} : clausesOf(table);
  const std::size_t tail = std::min(clauses.tail, table.size());
  if (clauses.where == kNone) {
    sql.append(trimmedBlanks(table.substr(0, tail))).append(" WHERE ").append(keyColumn);
    sql.append("=?");
  } else {
    const std::size_t condition = clauses.where + kWhereWidth;
    sql.append(table.substr(0, clauses.where)).append("WHERE (").append(keyColumn);
    sql.append("=?) AND (");
    sql.append(trimmedBlanks(table.substr(condition, tail - condition))).append(")");
  }
  if (tail < table.size()) sql.append(" ").append(table.substr(tail));
}

}  // namespace kt7::roles
