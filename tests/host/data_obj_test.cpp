#include "company.h"
#include "roles/setting_store.h"

namespace kt7::host {
namespace {

constexpr const char* kRename = "UPDATE KT7TBranch SET TBraName='renamed' WHERE TBraCode='01'";
constexpr const char* kName = "SELECT TBraName FROM KT7TBranch WHERE TBraCode='01'";

class DataObjTest : public CompanyTest {
 protected:
  HostDataObj dataObj_{connectionString_};
};

TEST_F(DataObjTest, OpensAreCounted) {
  EXPECT_EQ(errorOf([&] { dataObj_.Connection(); }), error_number::kCallFailed);
  EXPECT_EQ(errorOf([&] { dataObj_.ExecuteSql(kRename); }), error_number::kCallFailed);
  dataObj_.OpenConnection();
  dataObj_.OpenConnection();
  dataObj_.CloseConnection();
  dataObj_.ExecuteSqlEx(kRename, true);
  EXPECT_EQ(seen(kName), "renamed");
  dataObj_.CloseConnection();
  EXPECT_EQ(errorOf([&] { dataObj_.BeginTransaction(); }), error_number::kCallFailed);
  dataObj_.CloseConnection();
  EXPECT_EQ(dataObj_.opens(), 0);
  dataObj_.OpenConnection();
  EXPECT_EQ(dataObj_.opens(), 1);
  EXPECT_EQ(dataObj_.DatabaseType(), test::engine().kind);
  EXPECT_EQ(dataObj_.ConnectionString(), connectionString_);
}

TEST_F(DataObjTest, AnOpeningThatFailsDoesNotCount) {
  HostDataObj missing("Driver=SQLite;Database=/nonexistent/company.db");
  EXPECT_EQ(errorOf([&] { missing.OpenConnection(); }), error_number::kConnectionFailed);
  EXPECT_EQ(missing.opens(), 0);
}

TEST_F(DataObjTest, TransactionsCommitRollBackAndEndWithTheLastClose) {
  dataObj_.OpenConnection();
  dataObj_.BeginTransaction();
  EXPECT_TRUE(dataObj_.inTransaction());
  dataObj_.ExecuteSql(kRename);
  dataObj_.RollbackTransaction();
  EXPECT_FALSE(dataObj_.inTransaction());
  EXPECT_EQ(seen(kName), "Bangkok");

  dataObj_.BeginTransaction();
  dataObj_.ExecuteSql(kRename);
  dataObj_.CloseConnection();
  EXPECT_FALSE(dataObj_.inTransaction());
  EXPECT_EQ(seen(kName), "Bangkok");

  dataObj_.OpenConnection();
  dataObj_.BeginTransaction();
  dataObj_.ExecuteSql(kRename);
  dataObj_.CommitTransaction();
  EXPECT_FALSE(dataObj_.inTransaction());
  EXPECT_EQ(seen(kName), "renamed");
}

TEST_F(DataObjTest, AfterAFailedCallTheSessionGoesOn) {
  dataObj_.OpenConnection();
  // A call that opened twice, began and failed.
  dataObj_.OpenConnection();
  dataObj_.OpenConnection();
  dataObj_.BeginTransaction();
  dataObj_.ExecuteSql(kRename);
  dataObj_.reset(1);
  EXPECT_EQ(dataObj_.opens(), 1);
  EXPECT_FALSE(dataObj_.inTransaction());
  EXPECT_EQ(seen(kName), "Bangkok");

  // One inside the caller's transaction leaves that alone.
  dataObj_.BeginTransaction();
  dataObj_.ExecuteSql(kRename);
  dataObj_.OpenConnection();
  dataObj_.closeDownTo(1);
  EXPECT_EQ(dataObj_.opens(), 1);
  EXPECT_TRUE(dataObj_.inTransaction());
  dataObj_.CommitTransaction();
  EXPECT_EQ(seen(kName), "renamed");

  // One that closed too often finds its connection open again.
  dataObj_.CloseConnection();
  dataObj_.reset(1);
  dataObj_.ExecuteSql("UPDATE KT7TBranch SET TBraName='again' WHERE TBraCode='01'");
  EXPECT_EQ(seen(kName), "again");
}

TEST_F(DataObjTest, ResetTakesAnotherConnectionWhereRollingBackFails) {
  dataObj_.OpenConnection();
  dataObj_.BeginTransaction();
  dataObj_.ExecuteSql(kRename);
  dataObj_.Connection().RollbackTrans();
  dataObj_.reset(2);
  EXPECT_EQ(dataObj_.opens(), 2);
  EXPECT_FALSE(dataObj_.inTransaction());
  dataObj_.BeginTransaction();
  dataObj_.RollbackTransaction();
}

TEST_F(DataObjTest, ResetTakesAnotherConnectionWhereItWasLost) {
  if (test::engine().files) GTEST_SKIP() << "no connection to lose";
  dataObj_.OpenConnection();
  for (const bool told : {true, false}) {
    database_.endConnections();
    if (told)
      EXPECT_EQ(errorOf([&] { dataObj_.ExecuteSql(kRename); }), error_number::kConnectionFailed);
    dataObj_.reset(1);
    EXPECT_EQ(dataObj_.opens(), 1);
    EXPECT_NO_THROW(dataObj_.ExecuteSql(kRename));
  }
}

TEST_F(DataObjTest, SettingsAndRights) {
  roles::StandardSettingStore settings{*data::pooledSessions()};
  EXPECT_EQ(settings.GetNumberSetting("MoneyExpendses", connectionString_), 50.5);
  EXPECT_EQ(settings.GetNumberSetting("moneyexpendses", connectionString_), 0);
  EXPECT_EQ(settings.GetNumberSetting("HeadOfficeBranchCode", connectionString_), 0);
  EXPECT_EQ(settings.GetNumberSetting("it's", connectionString_), 0);
  EXPECT_EQ(settings.ReadSettingText("HeadOfficeBranchCode", connectionString_, 0), "01");
  EXPECT_EQ(settings.ReadSettingText("MoneyExpendses", connectionString_, 0), "");
  EXPECT_EQ(settings.ReadSettingText("CompanyCode", connectionString_, 0), "");
  EXPECT_EQ(settings.GetHeadOfficeBranchCode(dataObj_), "01");

  for (int user = 1; user <= 4; ++user) {
    EXPECT_EQ(settings.IsAdministrator(user, connectionString_), user == 1) << user;
    EXPECT_EQ(settings.IsModuleAdministrator("HR", user, connectionString_), user == 2) << user;
    EXPECT_FALSE(settings.IsModuleAdministrator("GL", user, connectionString_)) << user;
    EXPECT_EQ(settings.UserHasRight(user, "HRMASTERALLTYPE", connectionString_, "", 0), user == 2)
        << user;
    EXPECT_FALSE(settings.UserHasRight(user, "HRMASTERALLBRANCH", connectionString_, "", 0))
        << user;
  }
}

TEST_F(DataObjTest, MessagesGoToTheViewOrToOneLineOnStandardError) {
  HostPlatform platform;
  ::testing::internal::CaptureStderr();
  platform.showMessage("first\nsecond \x1B[2J\xC2\x9B é ก");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "first second  [2J  é ก\n");
  std::string shown;
  platform.setMessageView([&](const std::string& text) { shown = text; });
  platform.showMessage("a\nb");
  EXPECT_EQ(shown, "a\nb");
  platform.setMessageView([](const std::string&) { raiseOverflow(); });
  ::testing::internal::CaptureStderr();
  platform.showMessage("c\rd");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "c d\n");
}

}  // namespace
}  // namespace kt7::host
