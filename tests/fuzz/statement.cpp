#include <sqlite3.h>

#include "base/text.h"
#include "door.h"
#include "roles/sql/statement_kind.h"
#include "roles/sql/statement_text.h"

namespace kt7::fuzz {

namespace {

using data::Dialect;
using data::StatementText;

constexpr Dialect kOnlyLifted{.liftsLiterals = true};
constexpr Dialect kNumbered{.liftsLiterals = true, .numberedPlaceholders = true};
constexpr Dialect kDialects[] = {
    {.limitForTop = true, .wholeYears = true, .liftsLiterals = true},
    {.limitForTop = true, .liftsLiterals = true, .numberedPlaceholders = true},
    {.limitForTop = true, .foldsTableNames = true, .runsSeveral = true, .definitionsCommit = true},
    {.yearsByText = true, .runsSeveral = true, .separatesByWords = true}};

sqlite3* tables() {
  static sqlite3* const made = [] {
    sqlite3* database = nullptr;
    sqlite3_open(":memory:", &database);
    sqlite3_exec(database, "CREATE TABLE t(a TEXT,b TEXT,c);CREATE TABLE u(a,d)", {}, {}, {});
    return database;
  }();
  return made;
}

/// How the engine reads a text: -1 for one that it refuses, else the columns of its answer.
struct Prepared {
  explicit Prepared(std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    sqlite3_prepare_v2(tables(), sql.data(), static_cast<int>(sql.size()), &statement, &rest);
    if (statement != nullptr) columns = sqlite3_column_count(statement);
    if (statement != nullptr) parameters = sqlite3_bind_parameter_count(statement);
    readsAll = data::isBlankSql(sql.substr(static_cast<std::size_t>(rest - sql.data())));
    sqlite3_finalize(statement);
  }
  int columns = -1;
  int parameters = 0;
  bool readsAll = false;
};

void tokensAreInOrder(std::string_view sql, const std::vector<data::Token>& tokens) {
  std::size_t end = 0;
  for (const data::Token& token : tokens) {
    require(token.begin >= end && token.length > 0 && token.end() <= sql.size(),
            "tokens follow each other");
    end = token.end();
  }
}

/// The text with its values put back at their placeholders.
std::string putBack(const StatementText& lifted) {
  std::vector<data::Token> tokens;
  lexSql(lifted.text(), tokens);
  std::string sql;
  std::size_t at = 0, next = 0;
  for (const data::Token& token : tokens) {
    if (token.kind != data::TokenKind::Parameter || next == lifted.literals().size()) continue;
    sql.append(lifted.text().substr(at, token.begin - at));
    sql.append("'").append(replaceAll(lifted.literals()[next++], "'", "''")).append("'");
    at = token.end();
  }
  return sql.append(lifted.text().substr(at));
}

/// What the engine makes of a statement that was let through is what was concluded from its text.
void agreesWithEngine(const std::string& sql, const Dialect& dialect, bool lexes) {
  StatementText one;
  if (!unlessRefused([&] { return one.readOne(sql, dialect), true; })) return;
  Prepared plain(sql);
  // What was not understood the driver asks the engine about.
  require(plain.columns < 0 || plain.readsAll || !lexes, "only one statement is let through");
  if (plain.columns < 0 || !plain.readsAll) return;
  require(!one.answersNoRows() || plain.columns == 0, "what answers rows is not taken for less");
  const Prepared lifted(one.text());
  require(dialect.liftsLiterals == false || lifted.columns == plain.columns,
          "the engine still takes the statement", std::string(one.text()));
  require(lifted.parameters - plain.parameters == static_cast<int>(one.literals().size()),
          "every value has its placeholder", std::string(one.text()));
}

}  // namespace

void enter(std::string_view text) {
  const std::string sql(text);
  std::vector<data::Token> tokens;
  const bool lexes = lexSql(sql, tokens);
  tokensAreInOrder(sql, tokens);
  StatementText statement;
  for (const Dialect& dialect : {kOnlyLifted, kNumbered}) {
    statement.read(sql, dialect);
    require(statement.parameters() > 0 || putBack(statement) == sql,
            "values put back give the statement again", std::string(statement.text()));
    std::vector<data::Token> rewritten;
    lexSql(statement.text(), rewritten);
    require(rewritten.size() == tokens.size(), "a placeholder is one token",
            std::string(statement.text()));
  }
  for (const Dialect& dialect : kDialects) {
    statement.read(sql, dialect);
    require(lexSql(statement.text(), tokens) == lexes, "what is rewritten reads like the original",
            std::string(statement.text()));
  }
  data::tableOfSelect(sql);
  agreesWithEngine(sql, kOnlyLifted, lexes);
}

}  // namespace kt7::fuzz
