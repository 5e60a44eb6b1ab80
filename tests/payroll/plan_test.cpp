// What a month builds on: the generated slip periods, and the balances of the months before.
#include <kt7/payroll/register_amounts.h>
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_request.h>
#include "paid_company.h"
#include "payroll/api/store_worker.h"
#include "payroll/ports/run_services.h"
#include "payroll/workers/pay_run.h"

namespace kt7::payroll {

namespace {

/// A host's library whose slip periods are not what its types say.
class OtherPeriods : public HRObject {
 public:
  OtherPeriods(Platform& platform, std::string change)
      : HRObject(platform), change_(std::move(change)) {}

  void UpdatePeriodStatus(DataObj& dataObj, bool autoPeriodOnly) override {
    if (change_.empty()) return;
    HRObject::UpdatePeriodStatus(dataObj, autoPeriodOnly);
    dataObj.ExecuteSql(change_);
  }

 private:
  std::string change_;
};

class Plan2026 : public PaidCompany {
 protected:
  Told payWith(const std::string& change) {
    Told told;
    const RunRequest request{Month(2026, 1), "", {}};
    platform_.setNow(request.month.lastDay());
    host::HostDataObj dataObj(database_.connectionString());
    StoreWorker worker(platform_, dataObj);
    OtherPeriods hr(platform_, change);
    const RunServices& own = worker.services();
    RunServices services{.hr = hr,
                         .dataObj = own.dataObj,
                         .utility = own.utility,
                         .settings = own.settings,
                         .company = own.company,
                         .book = own.book,
                         .leases = own.leases,
                         .newProfile = own.newProfile,
                         .now = own.now,
                         .messagesOf = own.messagesOf,
                         .showMessage = own.showMessage,
                         .reconnect = own.reconnect};
    try {
      told.outcome = runMonth(request, services, told);
    } catch (const RunStopped& stopped) {
      told.reasons = stopped.reasons();
    }
    return told;
  }
};

TEST_F(Plan2026, NobodyIsPaidByPeriodsThatWereNotPlanned) {
  const std::string ofM1 = " WHERE TSaPTEmTCode='M1' AND TSAPDate='2026-01-31'";
  struct Case {
    const char* name;
    std::string change;  // "" generates nothing
    std::size_t reasons;
  };
  const std::vector<Case> cases{
      {"another span", "UPDATE KT7TEmpSlipPeriod SET TSAPEndDate='2026-01-30'" + ofM1, 1},
      {"another pay date", "UPDATE KT7TEmpSlipPeriod SET TSAPDate='2026-01-30'" + ofM1, 1},
      {"frozen meanwhile", "UPDATE KT7TEmpSlipPeriod SET TSAPStatus=0" + ofM1, 1},
      {"of another type", "UPDATE KT7TEmpSlipPeriod SET TSaPTEmTCode='X'" + ofM1, 1},
      {"gone", "DELETE FROM KT7TEmpSlipPeriod", 10},
      {"never generated", "", 10}};
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    sql("DELETE FROM KT7TEmpSlipPeriod");
    const Told told = payWith(row.change);
    EXPECT_EQ(told.reasons.size(), row.reasons);
    EXPECT_TRUE(std::ranges::any_of(told.reasons, [](const std::string& reason) {
      return reason.starts_with("the slip period M1 on 2026-01-31 does not stand for");
    }));
    EXPECT_EQ(count("KT7TEmpSlipDoc"), 0);
  }
}

TEST_F(Plan2026, TheYearSoFarIsTheRunsOwnBalances) {
  pay(1);
  const Told before = pay(2);
  // Balances of another kind and of another group of slips, which would double January.
  const std::string january =
      "SELECT TEATTEmpCode, TEATTEmTCode, TEATPaymentDate, {}, TEATAddTotal, TEATSubSalary, "
      "TEATCutSTAX, TEATCutSFund, TEATCutTAX FROM KT7TEmpAmassType WHERE TEATMonth=1";
  const auto withFlags = [](std::string text, const std::string& flags) {
    return text.replace(text.find("{}"), 2, flags);
  };
  for (const char* flags : {"TEATCheckGroup, 1", "2, TEATBalanceFlag"}) {
    sql("INSERT INTO KT7TEmpAmassType (TEATTEmpCode, TEATTEmTCode, TEATPaymentDate, "
        "TEATCheckGroup, TEATBalanceFlag, TEATAddTotal, TEATSubSalary, TEATCutSTAX, TEATCutSFund, "
        "TEATCutTAX) " +
        withFlags(january, flags));
    const Told after = pay(2);
    ASSERT_EQ(after.slips.size(), before.slips.size());
    for (std::size_t i = 0; i < before.slips.size(); ++i) {
      EXPECT_EQ(registerAmounts(after.slips[i]).net, registerAmounts(before.slips[i]).net)
          << flags << " " << before.slips[i].employee;
    }
  }
}

}  // namespace

}  // namespace kt7::payroll
