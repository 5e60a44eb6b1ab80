#include "roles/sql/statement_text.h"

#include <gtest/gtest.h>

#include <kt7/error.h>
#include "support/cases.h"

namespace kt7::data {

namespace {

TEST(SqlLexerTest, CutsTextsIntoTokens) {
  struct Case {
    const char* sql;
    const char* tokens;  // joined by "|"; null where the text does not lex
  };
  const Case cases[] = {
      {"SELECT a.b,'it''s' FROM t", "SELECT|a|.|b|,|'it''s'|FROM|t"},
      {"a<>1.5e-3 -- rest 'x\n>=.5", "a|<>|1.5e-3|>=|.5"},
      {"a/* ' */||\"b\"\"c\"[d e]`f`", "a||||\"b\"\"c\"|[d e]|`f`"},
      {"x'0a'=X'0B'", "x'0a'|=|X'0B'"},
      {"N'a' ?1 :b", "N|'a'|?1|:b"},
      {"รหัส='ก'", "รหัส|=|'ก'"},
      {"", ""},
      {"a='open", nullptr},
      {"a /* open", nullptr},
      {"E'it\\'s'", nullptr},
      {"12ab", nullptr},
      {"5e-?", nullptr},
      {"a \\ b", nullptr},
  };
  for (const Case& c : cases) {
    std::vector<Token> tokens;
    const bool lexes = lexSql(c.sql, tokens);
    ASSERT_EQ(lexes, c.tokens != nullptr) << c.sql;
    if (!lexes) continue;
    std::string joined;
    for (const Token& token : tokens) {
      if (!joined.empty()) joined += '|';
      joined += std::string_view(c.sql).substr(token.begin, token.length);
    }
    EXPECT_EQ(joined, c.tokens) << c.sql;
  }
}

TEST(SqlLexerTest, OnlyBlanksCommentsAndSemicolonsAreNothing) {
  for (const char* nothing : {"", " ; ;\n", "-- a\n/* b */;", "-- a"}) {
    EXPECT_TRUE(isBlankSql(nothing)) << nothing;
  }
  for (const char* something : {"x", "; SELECT 1", "/* a */ '", "/* open"}) {
    EXPECT_FALSE(isBlankSql(something)) << something;
  }
}

Dialect dialectOf(const std::string& name) {
  if (name == "[numbered]") return {.liftsLiterals = true, .numberedPlaceholders = true};
  if (name == "[folding]") return {.foldsTableNames = true};
  if (name == "[years by text]") return {.yearsByText = true};
  EXPECT_EQ(name, "[all]");
  return {.limitForTop = true, .wholeYears = true, .liftsLiterals = true};
}

TEST(StatementTextTest, LiftsAndSpeaksTheDialectOnlyWhereTheResultCannotChange) {
  StatementText statement;
  Dialect dialect;
  for (const std::vector<std::string>& lines : kt7::test::casesOf("data/statements.txt")) {
    if (lines[0][0] == '[') {
      dialect = dialectOf(lines[0]);
      continue;
    }
    statement.read(lines[0], dialect);
    std::vector<std::string> expected = lines;
    if (lines.size() == 1) expected.push_back(lines[0]);
    std::vector<std::string> read{lines[0], std::string(statement.text())};
    for (const std::string& literal : statement.literals()) read.push_back(literal);
    EXPECT_EQ(read, expected);
  }
}

TEST(StatementTextTest, KnowsWhatAnswersNoRowsAndWhatCommits) {
  StatementText statement;
  for (std::vector<std::string> kind : kt7::test::casesOf("data/statement_kinds.txt")) {
    for (std::size_t i = 1; i < kind.size(); ++i) {
      statement.readOne(kind[i], {.definitionsCommit = true});
      EXPECT_EQ(std::string(statement.answersNoRows() ? "no rows" : "rows") +
                    (statement.commitsFirst() ? ", commits" : ""),
                kind[0])
          << kind[i];
      statement.readOne(kind[i], {});
      EXPECT_FALSE(statement.commitsFirst()) << kind[i];
    }
  }
}

TEST(StatementTextTest, RefusesASecondStatementThatBeginsByItsWord) {
  constexpr Dialect kByWords{.runsSeveral = true, .separatesByWords = true};
  StatementText text;
  for (const char* one :
       {"SELECT Name FROM T WHERE A=(SELECT MAX(A) FROM T)", "INSERT INTO T(A) SELECT A FROM U",
        "UPDATE T SET A='DROP'", "WITH q AS (SELECT 1 AS A) DELETE FROM T",
        "CREATE TABLE T(A INTEGER REFERENCES U(A) ON DELETE CASCADE)", "GRANT UPDATE ON T TO u"}) {
    EXPECT_NO_THROW(text.readOne(one, kByWords)) << one;
  }
  for (const char* two :
       {"SELECT Name FROM T WHERE A='x' DROP TABLE T --'", "UPDATE T SET A='x' delete FROM T",
        "INSERT INTO T(A) VALUES('x') EXEC p", "SELECT 1 DECLARE @a INT"}) {
    EXPECT_THROW(text.readOne(two, kByWords), Error) << two;
  }
}

TEST(StatementTextTest, FindsTheTableOfASelect) {
  EXPECT_EQ(tableOfSelect("SELECT (SELECT 1 FROM u) FROM KT7TBranch WHERE a='FROM x'"),
            "KT7TBranch");
  EXPECT_EQ(tableOfSelect("SELECT * FROM (SELECT 1)"), "");
  EXPECT_EQ(tableOfSelect("SELECT 1"), "");
}

}  // namespace

}  // namespace kt7::data
