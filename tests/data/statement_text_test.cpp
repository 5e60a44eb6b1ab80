#include "roles/sql/statement_text.h"

#include <gtest/gtest.h>

#include <span>

#include <kt7/error.h>
#include "base/text.h"

namespace kt7::data {

namespace {

constexpr Dialect kAll{.limitForTop = true, .wholeYears = true, .liftsLiterals = true};

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

struct TextCase {
  const char* sql;
  const char* text;
  const char* literals;  // joined by "|"
};

void expectTexts(std::span<const TextCase> cases, const Dialect& dialect = kAll) {
  StatementText statement;
  for (const TextCase& c : cases) {
    statement.read(c.sql, dialect);
    std::string literals;
    for (const std::string& literal : statement.literals()) {
      literals += (literals.empty() ? "" : "|") + literal;
    }
    EXPECT_EQ(statement.text(), c.text);
    EXPECT_EQ(literals, c.literals) << c.sql;
  }
}

TEST(StatementTextTest, LiftsOnlyWhereTheResultCannotChange) {
  const TextCase cases[] = {
      {"SELECT a FROM t WHERE b='x' AND c<>'y''z' AND d IN ('p','q')",
       "SELECT a FROM t WHERE b=? AND c<>? AND d IN (?,?)", "x|y'z|p|q"},
      {"select a from t where b between 'x' and 'y' or c like 'z%' escape '!'",
       "select a from t where b between ? and ? or c like ? escape '!'", "x|y|z%"},
      {"UPDATE t SET a='x',b=c||'y' WHERE d='z'", "UPDATE t SET a=?,b=c||'y' WHERE d=?", "x|z"},
      {"UPDATE t SET ('a','b')=('x','y')", "UPDATE t SET ('a','b')=('x','y')", ""},
      {"UPDATE t SET a=1,'b'='y'", "UPDATE t SET a=1,'b'=?", "y"},
      {"INSERT INTO t('a',b) VALUES('x',1),('',NULL)", "INSERT INTO t('a',b) VALUES(?,1),(?,NULL)",
       "x|"},
      {"SELECT 'x', b='y' AS 'z' FROM t", "SELECT 'x', b='y' AS 'z' FROM t", ""},
      {"SELECT (SELECT a FROM t WHERE b='x') FROM (SELECT c FROM u WHERE d='y') JOIN v ON e='z'",
       "SELECT (SELECT a FROM t WHERE b='x') FROM (SELECT c FROM u WHERE d='y') JOIN v ON e='z'",
       ""},
      {"SELECT a FROM t WHERE b IN (SELECT 'x' FROM u WHERE c='y') AND d='z'",
       "SELECT a FROM t WHERE b IN (SELECT 'x' FROM u WHERE c=?) AND d=?", "y|z"},
      {"SELECT a FROM t WHERE b=1 GROUP BY c='p' HAVING d='q' ORDER BY e='r' LIMIT f='s'",
       "SELECT a FROM t WHERE b=1 GROUP BY c='p' HAVING d='q' ORDER BY e='r' LIMIT f='s'", ""},
      {"DELETE FROM t WHERE a='x' RETURNING b='y'", "DELETE FROM t WHERE a=? RETURNING b='y'", "x"},
      {"SELECT a FROM t WHERE b='x' UNION SELECT 'y'", "SELECT a FROM t WHERE b=? UNION SELECT 'y'",
       "x"},
      {"SELECT a FROM t WHERE b=DATE '2020-01-01' AND c=x'00' AND d=N'e' AND f=1",
       "SELECT a FROM t WHERE b=DATE '2020-01-01' AND c=x'00' AND d=N'e' AND f=1", ""},
      {"SELECT a FROM t WHERE b=?1 AND c='x'", "SELECT a FROM t WHERE b=?1 AND c='x'", ""},
      {"SELECT a FROM t WHERE b='x' y'", "SELECT a FROM t WHERE b='x' y'", ""},
      {"SELECT a FROM t WHERE b LIKE'x' OR c='y'1", "SELECT a FROM t WHERE b LIKE'x' OR c='y'1",
       ""},
      {"CREATE VIEW v AS SELECT a FROM t WHERE b='x'",
       "CREATE VIEW v AS SELECT a FROM t WHERE b='x'", ""},
      {"WITH w AS (SELECT 1) SELECT a FROM t WHERE b='x'",
       "WITH w AS (SELECT 1) SELECT a FROM t WHERE b='x'", ""},
  };
  expectTexts(cases);
}

TEST(StatementTextTest, SpeaksTheDialect) {
  const TextCase cases[] = {
      {"SELECT  TOP 1 a FROM t ORDER BY a;", "SELECT   a FROM t ORDER BY a LIMIT 1;", ""},
      {"SELECT DISTINCT TOP 2 a FROM t WHERE b IN (SELECT TOP 3 c FROM u) AND d='x'",
       "SELECT DISTINCT  a FROM t WHERE b IN (SELECT  c FROM u LIMIT 3) AND d=? LIMIT 2", "x"},
      {"SELECT top FROM t", "SELECT top FROM t", ""},
      {"SELECT a FROM t WHERE YEAR(d)='2016'", "SELECT a FROM t WHERE CAST(YEAR(d) AS INTEGER)=?",
       "2016"},
      {"SELECT year(d), year(d)+1 FROM t",
       "SELECT CAST(year(d) AS INTEGER) AS \"year(d)\", CAST(year(d) AS INTEGER)+1 FROM t", ""},
      {"SELECT t.year FROM t WHERE year=1", "SELECT t.year FROM t WHERE year=1", ""},
  };
  expectTexts(cases);
}

TEST(StatementTextTest, NumbersPlaceholders) {
  const TextCase cases[] = {
      {"SELECT a FROM t WHERE b='x' AND c IN ('y','z')",
       "SELECT a FROM t WHERE b=$1 AND c IN ($2,$3)", "x|y|z"},
      {"SELECT '?' FROM t WHERE a=? AND b='x' AND c=?",
       "SELECT '?' FROM t WHERE a=$1 AND b='x' AND c=$2", ""},
      {"SELECT a:?, ?? FROM t WHERE b LIKE? OR c=1.?",
       "SELECT a: $1, $2 $3 FROM t WHERE b LIKE $4 OR c=1. $5", ""},
  };
  expectTexts(cases, {.liftsLiterals = true, .numberedPlaceholders = true});
}

TEST(StatementTextTest, FoldsNamesOfItsOwnTablesOnly) {
  const TextCase cases[] = {
      {"SELECT KT7TPay.Code FROM KT7TPay, Other, KT7VPay p WHERE Code='KT7TPay'",
       "SELECT kt7tpay.Code FROM kt7tpay, Other, kt7vpay p WHERE Code='KT7TPay'", ""},
      {"CREATE TABLE KT7TNew (Code TEXT)", "CREATE TABLE kt7tnew (Code TEXT)", ""},
      {"SELECT year(d) FROM KT7TPay", "SELECT year(d) FROM kt7tpay", ""},
  };
  expectTexts(cases, {.foldsTableNames = true});
}

TEST(StatementTextTest, ReadsYearsWithoutAFunctionOfOurs) {
  const TextCase cases[] = {
      {"SELECT year(d) FROM t WHERE Year(d)='2016'",
       "SELECT CAST(strftime('%Y', d) AS INTEGER) AS \"year(d)\" FROM t WHERE "
       "CAST(strftime('%Y', d) AS INTEGER)='2016'",
       ""},
  };
  expectTexts(cases, {.yearsByText = true});
}

TEST(StatementTextTest, KnowsWhatAnswersNoRowsAndWhatCommits) {
  struct Case {
    const char* sql;
    bool noRows;
    bool commits;
  };
  const Case cases[] = {
      {"SELECT a FROM t WHERE b IN (SELECT 1)", false, false},
      {"SELECT a INTO u FROM t", true, false},
      {"(SELECT 1)", false, false},
      {"INSERT INTO t VALUES(1)", true, false},
      {"INSERT INTO t VALUES(1) RETURNING a", false, false},
      {"WITH w AS (SELECT a FROM u) UPDATE t SET a=1", true, false},
      {"WITH w AS (DELETE FROM u RETURNING a) DELETE FROM t", true, false},
      {"WITH w AS (DELETE FROM u RETURNING a) SELECT a FROM w", false, false},
      {"WITH w AS (SELECT 1) DELETE FROM t RETURNING a", false, false},
      {" -- first\n drop TABLE t", true, true},
      {"CREATE TABLE t(a TEXT DEFAULT E'x')", true, true},  // does not lex to its end
      {"CREATE OR REPLACE TEMPORARY TABLE t(a TEXT)", true, false},
      {"CREATE TABLE temporary(a TEXT)", true, true},
      {"DROP TEMPORARY TABLE t", true, false},
      {"TRUNCATE t", true, true},
      {"SET names=1", true, false},
      {"SET SESSION autocommit=1", true, true},
      {"ANALYZE TABLE t", false, true},
      {"ANALYZE SELECT 1", false, false},
      {"CALL p()", false, false},
      {"EXPLAIN DELETE FROM t", false, false},
      {"COMMIT", true, false},
  };
  StatementText statement;
  for (const Case& c : cases) {
    statement.readOne(c.sql, {.definitionsCommit = true});
    EXPECT_EQ(statement.answersNoRows(), c.noRows) << c.sql;
    EXPECT_EQ(statement.commitsFirst(), c.commits) << c.sql;
    statement.readOne(c.sql, {});
    EXPECT_FALSE(statement.commitsFirst()) << c.sql;
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
