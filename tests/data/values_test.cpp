#include <limits>

#include "test_database.h"

namespace kt7::data::test {

namespace {

using ValuesTest = DataTest;

Value money(const char* text) { return Currency::fromText(text); }
Value date(const char* text) { return Date::fromIsoText(text); }

TEST_F(ValuesTest, AssignedValuesComeBack) {
  struct Case {
    const char* column;
    Value assigned;
    const char* kept;  // as SQLite holds it
    Value read;
    bool exactType = true;  // else only SQLite takes it
  };
  const Case cases[] = {
      {"Code", "it's", "'it''s'", "it's"},
      {"Code", "", "''", ""},
      {"Code", "\\", "'\\'", "\\"},
      {"Code", "\\'? {fn x} ;-- %s $1", "'\\''? {fn x} ;-- %s $1'", "\\'? {fn x} ;-- %s $1"},
      {"Code", Value(), "NULL", Value()},
      {"Code", std::int32_t{7}, "'7'", "7"},
      {"Amount", money("60000"), "60000", money("60000")},
      {"Amount", money("-0.0001"), "-0.0001", money("-0.0001")},
      {"Amount", money("99999999999.9999"), "99999999999.9999", money("99999999999.9999")},
      {"Amount", money("900000000000000"), "900000000000000", money("900000000000000")},
      {"Amount", 12.34567, "12.34567", money("12.3457")},
      {"Amount", "text", "'text'", "text", false},
      {"Flag", true, "1", std::int16_t{1}},
      {"Flag", false, "0", std::int16_t{0}},
      {"Flag", std::int16_t{-2}, "-2", std::int16_t{-2}},
      {"Flag", std::int32_t{40000}, "40000", std::int32_t{40000}, false},
      {"Number", std::int32_t{40000}, "40000", std::int32_t{40000}},
      {"Number", std::int64_t{1} << 40, "1099511627776", std::int64_t{1} << 40, false},
      {"Number", 2.5, "2.5", 2.5, false},
      {"Rate", std::int32_t{3}, "3.0", 3.0},
      {"Rate", money("1.5"), "1.5", 1.5},
      {"Day", date("2026-01-31 23:59:59"), "'2026-01-31'", date("2026-01-31")},
      {"Day", "no date", "'no date'", "no date", false},
      {"Moment", date("2026-01-31 23:59:59"), "'2026-01-31 23:59:59'", date("2026-01-31 23:59:59")},
      {"Moment", date("2026-01-31"), "'2026-01-31 00:00:00'", date("2026-01-31")},
      {"Day", Value(), "NULL", Value()},
  };
  for (const Case& c : cases) {
    if (!c.exactType && !engine().embedded) continue;
    connection_->Execute("DELETE FROM KT7TPay");
    auto rows = opened("SELECT * FROM KT7TPay", ado::kOptimistic);
    rows->AddNew();
    rows->set(c.column, c.assigned);
    rows->Update();
    const std::string column = c.column;
    if (engine().embedded) {
      EXPECT_EQ(text("SELECT quote(" + column + ") FROM KT7TPay"), c.kept) << column;
    }
    EXPECT_EQ(opened("SELECT * FROM KT7TPay")->get(column), c.read) << column << " " << c.kept;
    EXPECT_EQ(ask("SELECT " + column + " FROM KT7TPay"), c.read) << column << " " << c.kept;
  }
}

TEST_F(ValuesTest, WhatWouldNotComeBackIsRefused) {
  const auto rows = opened("SELECT * FROM KT7TPay", ado::kOptimistic);
  rows->AddNew();
  if (engine().files) {
    rows->set("Amount", money("900000000000000.0001"));
    expectStatementError([&] { rows->Update(); }, "900000000000000.0001");
  }
  for (const char* column : {"Amount", "Rate", "Number"}) {
    for (const double number :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
      rows->AddNew();
      rows->set(column, number);
      expectStatementError([&] { rows->Update(); }, "undefined");
    }
  }
  EXPECT_EQ(text("SELECT COUNT(*) FROM KT7TPay"), "0");
}

TEST_F(ValuesTest, EveryFractionOfFifteenDigitsComesBack) {
  const auto rows = opened("SELECT * FROM KT7TPay", ado::kOptimistic);
  rows->AddNew();
  rows->set("Code", "x");
  rows->Update();
  for (std::int64_t count = 7; count < 999999999999999; count = count * 3 + 1) {
    const auto amount = Currency::fromTenThousandths(count);
    rows->set("Amount", amount);
    rows->Update();
    EXPECT_EQ(ask("SELECT Amount FROM KT7TPay"), Value(amount));
  }
}

TEST_F(ValuesTest, ExactDecimalsKeepEveryDigit) {
  if (!engine().exactDecimals) GTEST_SKIP() << "fifteen digits";
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a')");
  for (const char* amount : {"900000000000000.0001", "-922337203685477.5808",
                             "922337203685477.5807", "-0.0001", "1234567890123.4567"}) {
    const auto rows = opened("SELECT * FROM KT7TPay", ado::kOptimistic);
    rows->set("Amount", money(amount));
    rows->Update();
    EXPECT_EQ(ask("SELECT Amount FROM KT7TPay"), money(amount)) << amount;
    EXPECT_EQ(ask("SELECT SUM(Amount) FROM KT7TPay"), money(amount)) << amount;
  }
}

TEST_F(ValuesTest, OddDecimalsAreReadOrRefused) {
  if (!engine().exactDecimals) GTEST_SKIP() << "fifteen digits";
  struct Case {
    const char* expression;
    Value read;  // null where it is refused
  };
  const Case cases[] = {
      {"CAST('12.5' AS DECIMAL(5,2))", money("12.5")},
      {"CAST('-0.1' AS DECIMAL(5,1))", money("-0.1")},
      {"CAST('7' AS DECIMAL(10,0))", std::int32_t{7}},
      {"CAST('1.5' AS DECIMAL(30,10))", 1.5},
      {"CAST('922337203685477.5807' AS DECIMAL(24,4))", money("922337203685477.5807")},
      {"CAST('922337203685477.5808' AS DECIMAL(24,4))", Value()},
      {"CAST('99999999999999999999' AS DECIMAL(24,4))", Value()},
      {"CAST('99999999999999999999' AS DECIMAL(24,0))", Value()},
  };
  for (const Case& c : cases) {
    const std::string sql = std::string("SELECT ") + c.expression;
    if (c.read.isNull()) {
      EXPECT_THROW(ask(sql), Error) << sql;
    } else {
      EXPECT_EQ(ask(sql), c.read) << sql;
    }
  }
}

TEST_F(ValuesTest, PostgresqlsTypesAreReadAlikeByEveryDriver) {
  if (engine().kind != "POSTGRESQL") GTEST_SKIP() << "PostgreSQL's own types";
  struct Case {
    const char* expression;
    Value read;
  };
  const Case cases[] = {
      {"true", std::int16_t{1}},
      {"false", std::int16_t{0}},
      {"CAST(NULL AS boolean)", Value()},
      {"1=1", std::int16_t{1}},
      {"CAST(3 AS smallint)", std::int16_t{3}},
      {"CAST(3 AS bigint)", std::int32_t{3}},
      {"CAST(0.5 AS real)", 0.5},
      {"CAST(0.1 AS double precision)", 0.1},
      {"CAST('2.5' AS numeric)", money("2.5")},
      {"CAST('2.50000' AS numeric)", 2.5},
      {"CAST('2' AS numeric)", std::int32_t{2}},
      {"CAST('true' AS text)", "true"},
      {"CAST('t' AS varchar(5))", "t"},
      {"DATE '2026-01-31'", date("2026-01-31")},
      {"TIMESTAMP '2026-01-31 10:00:00.25'", date("2026-01-31 10:00:00")},
  };
  for (const Case& c : cases) {
    const std::string sql = std::string("SELECT ") + c.expression + " AS One";
    EXPECT_EQ(ask(sql), c.read) << sql;
    EXPECT_EQ(opened(sql)->get("One"), c.read) << sql;
  }
  for (const char* odd : {"CAST('NaN' AS numeric)", "CAST('NaN' AS numeric(19,4))",
                          "CAST('NaN' AS double precision)", "CAST('Infinity' AS real)"}) {
    expectStatementError([&] { ask(std::string("SELECT ") + odd); }, "for a number");
  }
}

TEST_F(ValuesTest, DeclaredTypesDecideHowAValueIsRead) {
  if (!engine().embedded) GTEST_SKIP() << "servers say the types of their results";
  connection_->Execute(
      "CREATE TABLE Kinds(a numeric(19,4), b DECIMAL, c money, d varchar(20), e datetime, f int, "
      "g float, h, i Date)");
  connection_->Execute(
      "INSERT INTO Kinds VALUES(1.00004,2,3.5,'2026-01-31','2026-01-31 10:00:00',5,6,7,"
      "'2026-02-30')");
  connection_->Execute("CREATE VIEW Seen AS SELECT a AS money, i AS day, a*2 AS twice FROM Kinds");
  struct Case {
    const char* expression;
    Value read;
  };
  const Case cases[] = {
      {"a FROM Kinds", money("1.0000")},
      {"b FROM Kinds", money("2")},
      {"c FROM Kinds", money("3.5")},
      {"d FROM Kinds", "2026-01-31"},
      {"e FROM Kinds", date("2026-01-31 10:00:00")},
      {"f FROM Kinds", std::int32_t{5}},
      {"g FROM Kinds", 6.0},
      {"h FROM Kinds", std::int32_t{7}},
      {"i FROM Kinds", "2026-02-30"},
      {"money FROM Seen", money("1.0000")},
      {"twice FROM Seen", 2.00008},
      {"COUNT(*) FROM Kinds", std::int32_t{1}},
      {"SUM(b) FROM Kinds", std::int32_t{2}},
      {"SUM(c) FROM Kinds", 3.5},
      {"MAX(a) FROM Kinds WHERE a>5", Value()},
      {"a FROM Kinds WHERE a>5", Value()},
      {"3000000000", std::int64_t{3000000000}},
      {"-2147483648", std::numeric_limits<std::int32_t>::min()},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ask(std::string("SELECT ") + c.expression), c.read) << c.expression;
  }
}

TEST_F(ValuesTest, YearComparesWithNumbersAndTexts) {
  connection_->Execute(
      "INSERT INTO KT7TPay(Code,Day,Moment) VALUES('a','2016-12-31','2017-01-01 00:00:00'),"
      "('b',NULL,NULL)");
  std::string undated = "b";
  if (engine().embedded) {
    connection_->Execute(
        "INSERT INTO KT7TPay(Code,Day,Moment) VALUES('c','','2016'),('d','2016-02-30','x')");
    undated = "b,c,d";
  }
  struct Case {
    const char* question;
    std::string codes;
  };
  const Case cases[] = {
      {"year(Day)=2016", "a"},
      {"year(Day)='2016'", "a"},
      {"YEAR (Moment) = '2017' AND year(Day)>'2015'", "a"},
      {"'2016'=year(Day)", "a"},
      {"year(Day) IN ('2015','2016')", "a"},
      {"year(Day) IS NULL", undated},
      {"year(Moment) IS NULL", undated},
      {"Day = (SELECT TOP 1 Day FROM KT7TPay WHERE year(Day)='2016')", "a"},
  };
  for (const Case& c : cases) {
    const std::string sql =
        std::string("SELECT Code AS line FROM KT7TPay WHERE ") + c.question + " ORDER BY Code";
    EXPECT_EQ(list(sql), c.codes) << c.question;
  }
  EXPECT_EQ(ask("SELECT year(Day) FROM KT7TPay WHERE Code='a'"), Value(std::int32_t{2016}));
  if (!engine().embedded) return;
  EXPECT_EQ(opened("SELECT year(Day) FROM KT7TPay")->get("year(Day)"), Value(std::int32_t{2016}));
}

TEST_F(ValuesTest, CodesCompareByteForByte) {
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a'),('A'),('a ')");
  EXPECT_EQ(text("SELECT COUNT(*) FROM KT7TPay WHERE Code='a'"), "1");
  EXPECT_EQ(ask("SELECT COUNT(*) FROM KT7TPay WHERE Code=?", {"a "}), Value(std::int32_t{1}));
}

}  // namespace

}  // namespace kt7::data::test
