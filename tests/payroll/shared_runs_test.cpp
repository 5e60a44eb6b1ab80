// How a shared run begins, who joins and who is refused; and that it ends.
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_request.h>
#include "payroll/api/store_worker.h"
#include "payroll/ports/run_names.h"
#include "payroll/ports/run_services.h"
#include "shared_company.h"
#include "support/opened.h"

namespace kt7::payroll {

namespace {

class SharedRuns : public SharedCompany {
 protected:
  /// As if what somebody has were taken that many seconds ago. Another process takes it where it
  /// may; answers whether it did.
  bool rivalTakesOverAfter(int seconds) {
    host::HostDataObj dataObj(database_.connectionString());
    StoreWorker rival(platform_, dataObj);
    const OpenData open(dataObj);
    OpenRecordset row(platform_, "SELECT TRLeUntil FROM KT7TRunLease WHERE TRLeState=1",
                      dataObj.Connection());
    const auto until =
        Date::fromSerial(row->get("TRLeUntil").toDate().serial() - seconds / 86400.0);
    const Date now = rival.services().leases.now();
    const bool free = until < now;
    sql("UPDATE KT7TRunLease SET TRLeUntil='" + (free ? now : until).isoDateTimeText() + "'" +
        (free ? ", TRLeWorker='rival'" : "") + " WHERE TRLeState=1");
    return free;
  }
};

TEST_F(SharedRuns, RunEndsHoweverShortTheLease) {
  hire(60);
  struct Case {
    const char* question;  // that takes long: in planning, in paying, in ending the month
    const char* type;
    int seconds;
    int losses;  // of a lease of 60 s, of 120 s
  };
  for (const Case& row : {Case{"TOP 30 TEmpCode, TEmpPrefix", "", 40, 0},
                          Case{"TOP 30 TEmpCode, TEmpPrefix", "", 200, 2},
                          Case{"=0 WHERE TEpSTEmpCode IN", "H1", 40, 0},
                          Case{"=0 WHERE TEpSTEmpCode IN", "H1", 200, 2},
                          Case{"=0 WHERE TEPSTEmTCode=", "H1", 200, 2}}) {
    SCOPED_TRACE(row.question);
    sql("DELETE FROM KT7TRunLease");
    int losses = 0;
    Interruption slow([&](const trace::Step& step) {
      const bool takesLong = step.kind == trace::StepKind::Recordset &&
                             step.sql.find(row.question) != std::string_view::npos &&
                             count("KT7TRunLease WHERE TRLeState=1") > 0;
      if (!takesLong || !rivalTakesOverAfter(row.seconds)) return;
      if (++losses > 8) throw std::runtime_error("nobody gets on");
    });
    RunRequest request = requestFor({}, row.type);
    request.sharing->leaseSeconds = 60;
    Told told;
    EXPECT_EQ(share(told, request, slow).failed, 0);
    EXPECT_EQ(losses, row.losses);
  }
}

TEST_F(SharedRuns, RunsOfTheSameEmployeesExcludeEachOther) {
  hire(5);
  struct Case {
    const char* underWay;
    const char* type;
    bool shared;
    bool refused;
  };
  for (const Case& row :
       {Case{"", "M1", true, true}, Case{"", "H1", false, true}, Case{"", "", false, true},
        Case{"M1", "", true, true}, Case{"M1", "M1", false, true}, Case{"M1", "H1", true, false},
        Case{"M1", "H1", false, false}}) {
    SCOPED_TRACE(std::string(row.underWay) + "|" + row.type + (row.shared ? " shared" : ""));
    sql("DELETE FROM KT7TRunLease");
    Dying dying;
    EXPECT_THROW(share(dying, requestFor({}, row.underWay)), std::runtime_error);
    const auto attempt = [&] {
      Told told;
      if (row.shared) return share(told, requestFor({}, row.type)).failed;
      host::HostDataObj dataObj(database_.connectionString());
      return payMonth(platform_, dataObj, {Month(2026, 1), row.type, {}}, told).failed;
    };
    if (row.refused) {
      EXPECT_THROW(attempt(), RunStopped);
      letLeasesRunOut("TRLeRun<>''");
    }
    EXPECT_EQ(attempt(), 0);
    EXPECT_EQ(count("KT7TRunLease WHERE TRLeState<>2") > 0, !row.refused);
  }
}

TEST_F(SharedRuns, LeaseOfAWrongClockHoldsNobodyUpAndARealOneIsNamed) {
  hire(5);
  for (const bool shared : {false, true}) {
    for (const bool planning : {false, true}) {
      SCOPED_TRACE(std::to_string(shared) + std::to_string(planning));
      sql("DELETE FROM KT7TRunLease");
      Dying dying;
      EXPECT_THROW(share(dying, requestFor()), std::runtime_error);
      if (planning) sql("UPDATE KT7TRunLease SET TRLeState=1 WHERE TRLeFrom='' AND TRLeTo<>''");
      Told refused = pay(1);
      ASSERT_EQ(refused.reasons.size(), 1u);
      EXPECT_NE(refused.reasons[0].find("at work is test"), std::string::npos);
      sql("UPDATE KT7TRunLease SET TRLeUntil='2099-01-01 00:00:00'");
      Told told;
      EXPECT_EQ((shared ? share(told, requestFor()) : pay(1).outcome).failed, 0);
      EXPECT_EQ(count("KT7TRunLease WHERE TRLeState<>2"), 0);
    }
  }
}

TEST_F(SharedRuns, PartsAreOnlyForThoseWhoFindTheSamePeriods) {
  hire(200);
  Dying dying;
  EXPECT_THROW(share(dying, {}, 1, 200), std::runtime_error);
  const auto standing = books();
  letLeasesRunOut("TRLeState=1");
  sql("UPDATE KT7TEmployeeType SET TEMTFlag1=0 WHERE TEmTCode='H1'");
  Told told;
  EXPECT_THROW(share(told, requestFor()), RunStopped);
  EXPECT_EQ(books(), standing);
  letLeasesRunOut("TRLeRun<>''");
  EXPECT_EQ(share(told, requestFor()).failed, 0);
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEPSTEmTCode='H1'"), 0) << "no longer due";
}

TEST(RunNames, NoRunIsCalledLikeAPartOfAnother) {
  const Month month(2026, 1);
  const auto lies = [](const std::string& name, const std::pair<std::string, std::string>& within) {
    return within.first <= name && name < within.second;
  };
  const std::vector<std::string> types{"", "M1", "M1/0", "M1/end", "M10", "M1/", "M1//0", "/"};
  for (const std::string& type : types) {
    const std::string run = runName(month, type);
    EXPECT_FALSE(isPartName(run));
    EXPECT_TRUE(lies(run, runNames(month)));
    EXPECT_FALSE(lies(run, runNames(month.plus(1))));
    for (const char* const what : {"000", "999", "end"}) {
      const std::string part = partName(run, what);
      EXPECT_TRUE(isPartName(part));
      for (const std::string& other : types) {
        EXPECT_EQ(lies(part, partNames(runName(month, other))), other == type) << part << other;
        EXPECT_FALSE(lies(run, partNames(runName(month, other)))) << run << other;
      }
    }
  }
}

}  // namespace

}  // namespace kt7::payroll
