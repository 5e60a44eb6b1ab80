#include "company.h"
#include "host/trace/fault_injector.h"
#include "host/trace/traced_data_obj.h"
#include "host/trace/traced_platform.h"

namespace kt7::trace {
namespace {

class TraceTest : public CompanyTest {
 protected:
  FaultInjector observer_;
  host::HostPlatform host_;
  TracedPlatform platform_{host_, observer_};
  host::HostDataObj hostDataObj_{connectionString_};
  TracedDataObj dataObj_{hostDataObj_, observer_};

  /// A call that uses every kind of step once.
  void work() {
    dataObj_.OpenConnection();
    dataObj_.BeginTransaction();
    dataObj_.ExecuteSqlEx("UPDATE KT7TBranch SET TBraRank=4 WHERE TBraCode='01'", true);
    const auto rows = platform_.createRecordset();
    rows->Open("SELECT * FROM KT7TBranch WHERE TBraCode='01'", dataObj_.Connection(), ado::kStatic,
               ado::kOptimistic);
    rows->set("TBraName", "renamed");
    rows->Update();
    rows->AddNew();
    rows->set("TBraCode", "05");
    rows->Update();
    rows->Close();
    const auto tool = platform_.createDataTool();
    EXPECT_EQ(tool->LookupText("", 0, 0, "TBraCode", "01", "TBraName", "KT7TBranch",
                               dataObj_.Connection()),
              "renamed");
    EXPECT_EQ(tool->QueryDouble("A", "SELECT 2 AS A", connectionString_), 2);
    const auto settings = platform_.createSettingStore();
    EXPECT_EQ(settings->GetNumberSetting("MoneyExpendses", connectionString_), 50.5);
    EXPECT_TRUE(settings->UserHasRight(2, "HRMASTERALLTYPE", connectionString_, "", 0));
    PickerRequest request;
    request.title = "branches";
    request.source = "KT7TBranch";
    EXPECT_EQ(tool->ShowMultiPicker(request, connectionString_, true), "02");
    platform_.showMessage("done");
    dataObj_.CommitTransaction();
    dataObj_.CloseConnection();
  }

  void SetUp() override {
    CompanyTest::SetUp();
    host_.setPicker(host::pickAlways({"02"}));
    host_.setMessageView([](const std::string&) {});
  }
};

TEST_F(TraceTest, ShowsEveryStepInOrder) {
  work();
  const std::vector<std::string> expected{
      "open (data object)",
      "begin (data object)",
      "execute (data object): UPDATE KT7TBranch SET TBraRank=4 WHERE TBraCode='01'",
      "recordset (data object): SELECT * FROM KT7TBranch WHERE TBraCode='01'",
      "update (data object): row of SELECT * FROM KT7TBranch WHERE TBraCode='01'",
      "update (data object): new row of SELECT * FROM KT7TBranch WHERE TBraCode='01'",
      "lookup (data object): TBraName of KT7TBranch where TBraCode=01",
      "query (own): SELECT 2 AS A",
      "setting (own): MoneyExpendses",
      "setting (own): UserHasRight of user 2 for HRMASTERALLTYPE",
      "picker: branches from KT7TBranch",
      "message: done",
      "commit (data object)",
      "close (data object)"};
  EXPECT_EQ(observer_.lines(), expected);
  EXPECT_EQ(seen("SELECT TBraName FROM KT7TBranch WHERE TBraCode='01'"), "renamed");
}

TEST_F(TraceTest, ConnectionsOfTheLibraryAreTheirOwn) {
  const auto connection = platform_.createConnection();
  connection->CursorLocation(ado::kClientSide);
  connection->Open(connectionString_);
  connection->BeginTrans();
  connection->Execute("DELETE FROM KT7TBranch");
  platform_.createRecordset()->Open("SELECT 1", *connection, ado::kStatic, ado::kReadOnly);
  connection->RollbackTrans();
  connection->Close();
  const std::vector<std::string> expected{"open (own)",
                                          "begin (own)",
                                          "execute (own): DELETE FROM KT7TBranch",
                                          "recordset (own): SELECT 1",
                                          "rollback (own)",
                                          "close (own)"};
  EXPECT_EQ(observer_.lines(), expected);
  EXPECT_EQ(seen("SELECT COUNT(*) FROM KT7TBranch"), "3");
}

TEST_F(TraceTest, AnyStepCanFailBeforeOrAfterItTookEffect) {
  work();
  const int steps = observer_.steps();
  const int commit = steps - 1;
  for (const auto when : {FaultInjector::When::Before, FaultInjector::When::After}) {
    for (int step = 1; step <= steps; ++step) {
      SCOPED_TRACE(step);
      run({"UPDATE KT7TBranch SET TBraName='Bangkok'",
           "DELETE FROM KT7TBranch WHERE TBraCode='05'"});
      observer_.failAt(step, when);
      const std::int32_t expected =
          step == 1 ? error_number::kConnectionFailed : error_number::kStatementFailed;
      EXPECT_EQ(errorOf([&] { work(); }), expected);
      EXPECT_TRUE(observer_.failed());
      EXPECT_EQ(observer_.steps(), step);
      const bool opened = step > 1 || when == FaultInjector::When::After;
      const bool closed = step == steps && when == FaultInjector::When::After;
      EXPECT_EQ(hostDataObj_.opens(), opened && !closed ? 1 : 0);
      hostDataObj_.reset(0);
      const bool committed =
          step > commit || (step == commit && when == FaultInjector::When::After);
      EXPECT_EQ(seen("SELECT TBraName FROM KT7TBranch WHERE TBraCode='01'"),
                committed ? "renamed" : "Bangkok");
    }
  }
  observer_.failAt(0, FaultInjector::When::Before);
  EXPECT_EQ(errorOf([&] { platform_.showMessage("fine"); }), 0);
  EXPECT_FALSE(observer_.failed());
}

TEST_F(TraceTest, AStepThatFailsByItselfHasNoAfter) {
  observer_.failAt(2, FaultInjector::When::After);
  dataObj_.OpenConnection();
  EXPECT_EQ(errorOf([&] { dataObj_.ExecuteSql("UPDATE Nothing SET A=1"); }),
            error_number::kStatementFailed);
  EXPECT_FALSE(observer_.failed());
}

}  // namespace
}  // namespace kt7::trace
