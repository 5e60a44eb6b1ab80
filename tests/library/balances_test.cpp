#include <gtest/gtest.h>

#include "support/company.h"
#include "support/raises.h"

namespace kt7 {
namespace {

using test::Company;
using Lines = std::vector<std::string>;

struct Item {
  const char* kind;
  const char* checkMoney;
  const char* debit;
  const char* credit;
};

void addSlip(Company& company, std::initializer_list<Item> items) {
  company.run(
      "INSERT INTO KT7TEmployee (TEmpCode, TEmpTEmTCode, TEmpTBraCode) VALUES ('E1', 'M', "
      "'B1')");
  company.run(
      "INSERT INTO KT7TEmpSlipDoc (TEPSNo, TEpSTEmpCode, TEPSCheckGroup, TEpsTSaPDate, "
      "TEPSTotalWorkDay, TEPSNetTotal) VALUES ('N1', 'E1', 1, '2026-01-31', 22.5, 900)");
  for (const Item& item : items) {
    company.run(std::string("INSERT INTO KT7TEmpSlipItem (TSmbTEPSNo, TSmbTAMTAlias, "
                            "TSmbCheckMoney, TSmbDebit, TSmbCrebit) VALUES ('N1', '") +
                item.kind + "', " + item.checkMoney + ", " + item.debit + ", " + item.credit + ")");
  }
}

int16_t post(Company& company, int16_t status = 1) {
  return company.hr().SumAmass2("E1", 1, "", "N1", company.data(), status);
}

TEST(Balances, SumTheItemsOfASlipByKindAndBySign) {
  Company company("2026-01-31T18:00:00");
  addSlip(company, {{"SALARY", "1", "1000", "0"},
                    {"salary", "1", "500", "NULL"},
                    {"WELFARE12", "1", "100", "20"},
                    {"PTAX", "0", "0", "75.25"},
                    {"SFUNDCO", "2", "30", "0"},
                    {"GIFT", "3", "7", "0"}});
  EXPECT_EQ(post(company, 4), 1);
  const std::string select =
      "TEATAddSalary || ' ' || TEATSubSalary || ' ' || TEATAddWelfare || ' ' || TEATSubAddWelfar12 "
      "|| ' ' || TEATSubAddWelfare12 || ' ' || coalesce(" +
      test::asText("TEATSubAddWelfare13") +
      ", '-') || ' ' || "
      "TEATCutTAX || ' ' || TEATCutMoneyNoFix || ' ' || TEATCutTotal || ' ' || TEATCutAllTotal || "
      "' ' || TEATAddTotal || ' ' || TEATAmassTotal || ' ' || TEATTotalDay || ' ' || TEATNetTotal "
      "|| ' ' || TEATTBraCode || ' ' || TEATMonth || '/' || TEATYear || ' ' || TEATFlag1 || ' ' || "
      "TEATFlag3 AS line FROM KT7TEmpAmassType";
  const Lines expected{
      "1500 1500 120 0 120 - 75.25 37 75.25 105.25 1620 30 22.5 900 B1 1/2026 4 2026-01-31 "
      "18:00:00"};
  EXPECT_EQ(company.rows(select), expected);
  EXPECT_EQ(post(company, 4), 1);
  EXPECT_EQ(company.rows(select), expected) << "posting again counts nothing twice";
}

TEST(Balances, ASlipWithoutItemsChangesNothing) {
  Company company;
  addSlip(company, {{"SALARY", "1", "1000", "0"}});
  EXPECT_EQ(post(company), 1);
  company.run("DELETE FROM KT7TEmpSlipItem");
  EXPECT_EQ(post(company), 0);
  EXPECT_EQ(company.rows("TEATAddSalary AS line FROM KT7TEmpAmassType"), Lines{"1000"});
}

TEST(Balances, AFailureLeavesTheTransactionToTheCaller) {
  Company company;
  addSlip(company, {{"SALARY", "1", "1000", "0"}, {"SALARY", "1", "922337203685477", "0"}});
  EXPECT_EQ(test::raised([&] { post(company); }), "overflow");
  EXPECT_TRUE(company.hostData().inTransaction());
  company.hostData().RollbackTransaction();
  EXPECT_TRUE(company.rows("TEATTEmpCode AS line FROM KT7TEmpAmassType").empty());
}

TEST(Balances, ThePublishedFormsWithoutEffectTouchNothing) {
  Company company;
  company.steps().failAt(0, trace::FaultInjector::When::Before);
  EXPECT_EQ(company.hr().SumAmass("E1", 1, "", "N1", "no such database"), 0);
  EXPECT_TRUE(company.steps().lines().empty());
}

}  // namespace
}  // namespace kt7
