#include "company.h"
#include "roles/texts/date_text.h"
#include "roles/texts/lookup_statement.h"
#include "support/cases.h"

namespace kt7::host {
namespace {

TEST(DateMarkers, BecomeLiteralsAndNothingElseChanges) {
  EXPECT_EQ(roles::resolveDateMarkers(""), "");
  for (const auto& lines : test::casesOf("host/date_markers.txt")) {
    EXPECT_EQ(roles::resolveDateMarkers(lines.front()), lines.back());
  }
}

TEST(LookupStatement, TheKeyJoinsTheConditionsOfTheTableText) {
  std::string sql = "left over";
  for (const auto& lines : test::casesOf("host/lookup_statements.txt")) {
    roles::writeLookupStatement(sql, "R", "K", lines.front());
    EXPECT_EQ(sql, "SELECT R FROM " + lines.back());
  }
}

class DataToolTest : public CompanyTest {
 protected:
  std::string text(const std::string& key, const std::string& column, const std::string& table) {
    return tool_->LookupText("", 0, 0, "TBraCode", key, column, table, connectionString_);
  }

  HostPlatform platform_;
  std::unique_ptr<DataTool> tool_ = platform_.createDataTool();
};

TEST_F(DataToolTest, LookupsAnswerTheKeyedRowOrTheDefault) {
  EXPECT_EQ(text("01", "TBraName", "KT7TBranch"), "Bangkok");
  EXPECT_EQ(text("01", "TBraRank", "KT7TBranch"), "3");
  EXPECT_EQ(text("01", "TBraOpened", "KT7TBranch"), "1/5/2020");
  EXPECT_EQ(text("02", "TBraName", "KT7TBranch"), "");
  EXPECT_EQ(text("03", "TBraName", "KT7TBranch"), "");
  EXPECT_EQ(text("0' OR '1'='1", "TBraName", "KT7TBranch"), "");
  EXPECT_EQ(text("X", "TBraName", "KT7TBranch"), "");
  EXPECT_EQ(text("x", "TBraName", "KT7TBranch WHERE TBraName='ORDER BY'"), "ORDER BY");
  EXPECT_EQ(text("01", "TBraName", "KT7TBranch WHERE TBraRank>3 OR TBraRank=9"), "");

  const auto number = [&](const std::string& key, const std::string& column) {
    return tool_->LookupDouble("", 0, 0, "TBraCode", key, column, "KT7TBranch", connectionString_) +
           tool_->LookupNumber("", 0, 0, "TBraCode", key, column, "KT7TBranch", connectionString_);
  };
  EXPECT_EQ(number("01", "TBraRank"), 6);
  EXPECT_EQ(number("02", "TBraRank"), 0);
  EXPECT_EQ(number("99", "TBraRank"), 0);
  EXPECT_EQ(errorOf([&] { number("01", "TBraName"); }), error_number::kTypeMismatch);
  EXPECT_EQ(errorOf([&] { number("01", "TBraNothing"); }), error_number::kStatementFailed);

  const auto date = [&](const std::string& key) {
    return tool_->LookupDate("", 0, 0, "TBraCode", key, "TBraOpened", "KT7TBranch",
                             connectionString_);
  };
  EXPECT_EQ(date("01"), Date::fromYmd(2020, 5, 1));
  EXPECT_EQ(date("02"), Date());
  EXPECT_EQ(date("99"), Date());
}

TEST_F(DataToolTest, RecordExistsAlsoForARowOfNulls) {
  const auto exists = [&](const char* key) {
    return tool_->RecordExists("TBraCode", 0, key, "KT7TBranch", connectionString_, "TBraName", "",
                               true);
  };
  EXPECT_TRUE(exists("01"));
  EXPECT_TRUE(exists("02"));
  EXPECT_FALSE(exists("03"));
  EXPECT_FALSE(exists("0'1"));
}

TEST_F(DataToolTest, QueriesAnswerTheNamedFieldOfTheFirstRow) {
  const std::string all = "SELECT * FROM KT7TBranch ORDER BY TBraCode";
  const std::string none = "SELECT * FROM KT7TBranch WHERE TBraCode='99'";
  EXPECT_EQ(tool_->QueryText("tbraNAME", all, connectionString_), "Bangkok");
  EXPECT_EQ(tool_->QueryDate("TBraOpened", all, connectionString_), Date::fromYmd(2020, 5, 1));
  EXPECT_EQ(tool_->QueryDouble("TBraRank", all, connectionString_), 3);
  EXPECT_EQ(tool_->QueryNumber("A", "SELECT COUNT(*) AS A FROM KT7TBranch", connectionString_), 3);
  EXPECT_EQ(tool_->QueryValue("A", "SELECT MAX(TBraRank) AS A FROM KT7TBranch WHERE 1=0",
                              connectionString_),
            0);
  EXPECT_EQ(tool_->QueryText("TBraName", none, connectionString_), "");
  EXPECT_EQ(tool_->QueryDate("TBraOpened", none, connectionString_), Date());
  EXPECT_EQ(tool_->QueryDouble("TBraRank", none, connectionString_), 0);
  EXPECT_EQ(errorOf([&] { tool_->QueryText("Nothing", all, connectionString_); }),
            error_number::kStatementFailed);
  EXPECT_EQ(errorOf([&] { tool_->QueryDouble("TBraName", all, connectionString_); }),
            error_number::kTypeMismatch);
}

TEST_F(DataToolTest, WorksInTheTransactionOfTheConnectionItIsGiven) {
  HostDataObj dataObj(connectionString_);
  dataObj.OpenConnection();
  dataObj.BeginTransaction();
  dataObj.ExecuteSql("UPDATE KT7TBranch SET TBraName='Chiang Mai' WHERE TBraCode='01'");
  EXPECT_EQ(tool_->LookupFieldText("", 0, 0, "TBraCode", "01", "TBraName", "KT7TBranch",
                                   dataObj.Connection()),
            "Chiang Mai");
  EXPECT_EQ(text("01", "TBraName", "KT7TBranch"), "Bangkok");
  dataObj.RollbackTransaction();
}

TEST_F(DataToolTest, PickersAnswerWhatThePlatformIsTold) {
  PickerRequest request;
  request.title = "employees";
  request.key = "TEmpCode";
  EXPECT_EQ(errorOf([&] { tool_->ShowPicker(request, connectionString_); }),
            error_number::kCallFailed);
  platform_.setPicker(pickAlways({"E1", "E2"}));
  EXPECT_EQ(tool_->ShowMultiPicker(request, connectionString_, true), "E1,E2");
  platform_.setPicker(pickAlways({}));
  EXPECT_EQ(tool_->ShowPicker(request, connectionString_), "");
  platform_.setPicker([](const PickerRequest& asked, const std::string&, bool multi) {
    return asked.title + (multi ? " several" : " one");
  });
  EXPECT_EQ(tool_->ShowPicker(request, connectionString_), "employees one");
  EXPECT_EQ(tool_->ShowMultiPicker(request, connectionString_, false), "employees one");
  EXPECT_EQ(tool_->ShowMultiPicker(request, connectionString_, true), "employees several");
}

}  // namespace
}  // namespace kt7::host
