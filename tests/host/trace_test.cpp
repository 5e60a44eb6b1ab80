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

TEST_F(TraceTest, AStepThatFailsByItselfHasNoAfter) {
  observer_.failAt(2, FaultInjector::When::After);
  dataObj_.OpenConnection();
  EXPECT_EQ(errorOf([&] { dataObj_.ExecuteSql("UPDATE Nothing SET A=1"); }),
            error_number::kStatementFailed);
  EXPECT_FALSE(observer_.failed());
}

}  // namespace
}  // namespace kt7::trace
