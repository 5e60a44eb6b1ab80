#include "test_database.h"

namespace kt7::data::test {

namespace {

class RecordsetTest : public DataTest {
 protected:
  RecordsetTest() {
    connection_->Execute("INSERT INTO KT7TPay(Code,Number) VALUES('a',1),('b',2),('c',3)");
  }
  std::unique_ptr<ado::Recordset> edited(const std::string& condition = "") {
    return opened("SELECT * FROM KT7TPay " + condition + " ORDER BY PayRowID", ado::kOptimistic);
  }
  std::string numbers() { return list("SELECT Number AS line FROM KT7TPay ORDER BY PayRowID"); }
};

TEST_F(RecordsetTest, IsASnapshot) {
  std::string codes;
  const auto rows = opened("SELECT Code,Number FROM KT7TPay ORDER BY Code");
  for (; !rows->Eof(); rows->MoveNext()) {
    codes += rows->get("CODE").toText();
    connection_->Execute("UPDATE KT7TPay SET Code=Code||'+'");
    connection_->Execute("DELETE FROM KT7TPay WHERE Code LIKE 'c%'");
    connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('z')");
  }
  EXPECT_EQ(codes, "abc");
}

TEST_F(RecordsetTest, SnapshotsDoNotShareTheirRows) {
  const auto first = opened("SELECT Code FROM KT7TPay WHERE Code='a'");
  const auto second = opened("SELECT Code FROM KT7TPay WHERE Code='b'");
  opened("SELECT 'other text' AS Code")->Close();
  EXPECT_EQ(first->get("Code").toText() + second->get("Code").toText(), "ab");
}

TEST_F(RecordsetTest, WorksOnAConnectionOfItsOwn) {
  const auto rows = createRecordset();
  rows->Open("SELECT * FROM KT7TPay WHERE Code='b'", connectionString(), ado::kStatic,
             ado::kOptimistic);
  connection_->Close();
  rows->set("Number", 20);
  rows->Update();
  rows->Close();
  rows->Open("SELECT Number FROM KT7TPay WHERE Code='b'", connectionString(), ado::kStatic,
             ado::kReadOnly);
  EXPECT_EQ(rows->get("Number").toInt32(), 20);
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
}

TEST_F(RecordsetTest, UpdateWritesOnlyWhatWasAssigned) {
  const auto rows = edited();
  rows->MoveNext();
  connection_->Execute("UPDATE KT7TPay SET Code='changed elsewhere'");
  rows->set("number", 22);
  EXPECT_EQ(rows->get("Number").toInt32(), 22);
  EXPECT_EQ(numbers(), "1,2,3");
  rows->Update();
  EXPECT_EQ(numbers(), "1,22,3");
  EXPECT_EQ(text("SELECT Code FROM KT7TPay WHERE Number=22"), "changed elsewhere");
  rows->Update();
  EXPECT_EQ(rows->get("Number").toInt32(), 22);
  EXPECT_EQ(rows->get("Code").toText(), "b");
}

TEST_F(RecordsetTest, UnsavedAssignmentsAreDiscarded) {
  const auto rows = edited();
  rows->set("Number", 11);
  rows->MoveNext();
  rows->Update();
  rows->AddNew();
  rows->set("Number", 12);
  rows->MoveNext();
  EXPECT_EQ(rows->get("Code").toText(), "c");
  rows->set("Number", 13);
  rows->Close();
  EXPECT_EQ(numbers(), "1,2,3");
}

TEST_F(RecordsetTest, ANewRowIsEmptyAndThenCurrent) {
  const auto rows = edited("WHERE Code='none'");
  EXPECT_TRUE(rows->Eof());
  rows->AddNew();
  EXPECT_TRUE(rows->get("Code").isNull());
  rows->set("Code", "d");
  rows->set("Number", 4);
  EXPECT_EQ(rows->get("Code").toText(), "d");
  rows->Update();
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(rows->get("PayRowID").toInt32(), 4);
  EXPECT_EQ(rows->get("Code").toText(), "d");
  EXPECT_TRUE(rows->get("Amount").isNull());
  rows->set("Number", 40);
  rows->Update();
  EXPECT_EQ(numbers(), "1,2,3,40");
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  rows->AddNew();
  rows->Update();
  EXPECT_EQ(numbers(), "1,2,3,40");
}

TEST_F(RecordsetTest, ARowKeepsWhatItWasGivenWhenItsUpdateFails) {
  connection_->Execute("CREATE UNIQUE INDEX PayCode ON KT7TPay(Code)");
  const auto rows = edited();
  rows->set("Code", "b");
  expectStatementError([&] { rows->Update(); }, "");
  rows->set("Code", "free");
  rows->Update();
  EXPECT_EQ(text("SELECT Code FROM KT7TPay WHERE Number=1"), "free");
}

TEST_F(RecordsetTest, ARowThatIsGoneIsAnError) {
  const auto rows = edited();
  connection_->Execute("DELETE FROM KT7TPay WHERE Code='a'");
  rows->set("Number", 9);
  expectStatementError([&] { rows->Update(); }, "no longer there");
  EXPECT_EQ(numbers(), "2,3");
}

TEST_F(RecordsetTest, FindsTheKeyOfEveryTable) {
  connection_->Execute("CREATE TABLE Named(Name VARCHAR(20) PRIMARY KEY, N INTEGER)");
  connection_->Execute("INSERT INTO Named VALUES('x',1),('y',2)");
  connection_->Execute(
      "CREATE TABLE Pair(A VARCHAR(20), B VARCHAR(20), N INTEGER, PRIMARY KEY(A,B))");
  connection_->Execute("INSERT INTO Pair VALUES('x','y',1)");
  auto rows = opened("SELECT * FROM Named WHERE Name='y'", ado::kOptimistic);
  rows->set("Name", "z");
  rows->Update();
  rows->set("N", 3);
  rows->Update();
  EXPECT_EQ(list("SELECT Name||N AS line FROM Named ORDER BY Name"), "x1,z3");
  for (const char* sql : {"SELECT * FROM Pair", "SELECT N FROM Named"}) {
    rows = opened(sql, ado::kOptimistic);
    rows->set("N", 5);
    expectStatementError([&] { rows->Update(); }, "lacks their primary key");
  }
  rows = opened("SELECT N FROM (SELECT 1 AS N) AS T", ado::kOptimistic);
  rows->set("N", 5);
  expectStatementError([&] { rows->Update(); }, "table is not known");
}

TEST_F(RecordsetTest, RefusesMisuse) {
  const auto closed = createRecordset();
  expectStatementError([&] { closed->Eof(); }, "closed");
  expectStatementError([&] { closed->Fields(); }, "closed");
  expectStatementError([&] { closed->Close(); }, "closed");
  const auto reading = opened("SELECT * FROM KT7TPay WHERE Code='none'");
  expectStatementError([&] { reading->Open("SELECT 1", *connection_, 3, 1); }, "already open");
  expectStatementError([&] { reading->get("Code"); }, "no current row");
  expectStatementError([&] { reading->MoveNext(); }, "no current row");
  expectStatementError([&] { reading->get("Salary"); }, "no column 'Salary'");
  expectStatementError([&] { reading->AddNew(); }, "reading only");
  expectStatementError([&] { reading->Update(); }, "reading only");
  const auto editing = edited("WHERE Code='none'");
  expectStatementError([&] { editing->set("Code", "x"); }, "no current row");
  expectStatementError([&] { opened("UPDATE KT7TPay SET Number=0"); }, "answers no rows");
  EXPECT_EQ(numbers(), "1,2,3");
}

TEST_F(RecordsetTest, AClosedConnectionDoesNotWriteBack) {
  const auto rows = edited();
  rows->set("Number", 9);
  connection_->Close();
  connection_->Open(connectionString());
  expectStatementError([&] { rows->Update(); }, "connection of the recordset is closed");
  EXPECT_EQ(numbers(), "1,2,3");
  EXPECT_EQ(rows->get("Code").toText(), "a");
}

TEST_F(RecordsetTest, AFailedOpenLeavesItClosed) {
  const auto rows = createRecordset();
  // Fails in its second row, after the first has been read.
  const std::string sql =
      "SELECT abs(CASE WHEN Number=1 THEN 1 ELSE -9223372036854775808 END) "
      "FROM KT7TPay ORDER BY PayRowID";
  expectStatementError([&] { rows->Open(sql, *connection_, 3, 1); },
                       engine().files ? "integer overflow" : "out of range");
  expectStatementError([&] { rows->Eof(); }, "closed");
  rows->Open("SELECT 1 AS One", *connection_, 3, 1);
  EXPECT_EQ(rows->get("one").toInt32(), 1);
}

TEST_F(RecordsetTest, SeesAColumnThatCameLater) {
  const std::string sql = "SELECT * FROM KT7TPay WHERE Code='a'";
  opened(sql)->Close();
  connection_->Execute("ALTER TABLE KT7TPay ADD COLUMN Later DATE");
  connection_->Execute("UPDATE KT7TPay SET Later='2026-01-31'");
  EXPECT_EQ(opened(sql)->get("Later"), Value(Date::fromYmd(2026, 1, 31)));
}

TEST_F(RecordsetTest, FindsEveryColumnOfAWideTable) {
  std::string columns;
  for (int i = 1; i <= 120; ++i)
    columns += ",0+" + std::to_string(i) + " AS TSIT" + std::to_string(i);
  const auto rows = opened("SELECT 0 AS x, 'first' AS a, 'second' AS A" + columns);
  for (int i = 1; i <= 120; ++i) {
    EXPECT_EQ(rows->get("tsit" + std::to_string(i)).toInt32(), i);
  }
  EXPECT_EQ(rows->get("A").toText(), "first");
  expectStatementError([&] { rows->get("TSIT121"); }, "no column");
  expectStatementError([&] { rows->get(""); }, "no column");
}

}  // namespace

}  // namespace kt7::data::test
