#include "cli/command_fixture.h"
#include "fronts/common/display_text.h"
#include "fronts/common/payroll_register.h"

namespace kt7::cli {

namespace {

using OrderedJson = nlohmann::ordered_json;

constexpr const char* kFields =
    "EmployeeCode,EmployeeType,PayDate,PayDays,Salary,Overtime,OtherIncome,Gross,SocialSecurity,"
    "FundEmployee,FundEmployer,Tax,OtherDeductions,Net";

class PayrollCommand : public Commands {
 protected:
  PayrollCommand() { done({"init", "--sample"}); }

  Outcome payJanuary(std::vector<std::string> options, Terminal terminal = {}) const {
    options.insert(options.begin(), {"payroll", "--month", "2026-01"});
    return ask(options, "", terminal);
  }
};

TEST_F(PayrollCommand, RegisterIsOneRecordASlip) {
  const Outcome json = payJanuary({"--format", "json"});
  EXPECT_EQ(json.exitCode, kDone);
  EXPECT_EQ(json.err, "");
  const OrderedJson records = OrderedJson::parse(json.out);
  ASSERT_EQ(records.size(), 63u);
  std::string fields;
  for (const auto& [name, value] : records[0].items()) {
    fields += (fields.empty() ? "" : ",") + name;
    EXPECT_EQ(value.is_number(), fields.find("PayDays") != std::string::npos) << name;
  }
  EXPECT_EQ(fields, kFields);

  const Outcome csv = payJanuary({"--format", "csv"});
  EXPECT_EQ(csv.out.substr(0, csv.out.find('\n')), kFields);
  EXPECT_NE(csv.out.find("\nE0006,M1,2026-01-31,31.00,31500.50,0.00,0.00,31500.50,875.00,630.01,"
                         "1260.02,158.11,0.00,29837.38\n"),
            std::string::npos);
  EXPECT_EQ(std::count(csv.out.begin(), csv.out.end(), '\n'), 64);
  const Outcome nobody = ask({"payroll", "--month", "2000-01", "--type", "W4", "--format", "json"});
  EXPECT_EQ(nobody.out, "[]\n");
  EXPECT_EQ(nobody.exitCode, kDone);
}

TEST_F(PayrollCommand, TableFitsTheLineUnlessItIsToBeWide) {
  const std::string narrow = payJanuary({}).out;
  const std::string wide = payJanuary({"--wide"}).out;
  EXPECT_NE(narrow.find("\n" + std::string(100, '-') + "\n"), std::string::npos) << narrow;
  EXPECT_TRUE(narrow.ends_with("Other ded. (--wide or --format csv shows them)\n")) << narrow;
  EXPECT_NE(wide.find("\n" + std::string(176, '-') + "\n"), std::string::npos) << wide;
  for (const char* total : {"Total D2, 13 slips ", "Total M1, 16 slips ", "Total, 63 slips "}) {
    for (const std::string& table : {narrow, wide}) {
      EXPECT_NE(table.find(total), std::string::npos) << total;
      EXPECT_NE(table.find(" 1,674,789.50 "), std::string::npos);
    }
  }
}

TEST(PayrollRegister, KeepsItsColumnsAtEveryWidth) {
  struct Case {
    int width;
    std::vector<const char*> lines;  // of the header, a long code, long amounts, what is not shown
  };
  for (const Case& c : std::vector<Case>{
           {kAnyWidth,
            {"\nEmployee Name                         Type Pay date     Days       Salary   "
             "Overtime ",
             "\nPLANT-2/0004711 นายชื่อที่ยาวพอสมควร      M1   2026-01-31  31.00        -5.00 ",
             "\nTotal M1, 3 slips                                          123,471,784.01       "
             "0.00 "}},
           {100,
            {"\nEmployee Name             Type Date   Days        Gross Soc. sec.   Fund own       "
             " Tax "
             "         Net\n",
             "\nPLANT-2/0004711 นายชื่อที่ยา… M1   01-31 31.00        -5.00      0.00       0.00 ",
             "\nTotal M1, 3 slips                        123,471,784.01      0.00       0.00     "
             "0.00 "
             "123,471,784.01\n",
             "\nNot shown: Salary, Overtime, Other inc., Fund co., Other ded. (how)\n"}},
           {80,
            {"\nEmployee Name               Date         Gross Soc. sec.        Tax          Net\n",
             "\nPLANT-2/0004711 นายชื่อที่ยาวพ… 01-31        -5.00      0.00       0.00        -5.00\n",
             "\nE2       ก                01-31 123,456,789.01      0.00     0.00 123,456,789.01\n",
             "\nNot shown: Type, Days, Salary, Overtime, Other inc., Fund own, Fund co., "
             "Other\nded. "}},
           {60,
            {"\nEmployee Name                Date         Gross          Net\n",
             "\nPLANT-2/0004711 นายชื่อที่ยาวพอ… 01-31        -5.00        -5.00\n",
             "\nE2       ก               01-31 123,456,789.01 123,456,789.01\n",
             "Soc.\nsec., "}}}) {
    std::ostringstream out;
    const auto writer =
        registerWriter("table", out, "2026-01", {.width = c.width, .seeTheRest = "how"});
    for (const auto& [code, name, baht] :
         {std::tuple{"E0001", "นางสาวน้ำทิพย์ ตั้งใจทำงานเสมอ", "15000"},
          {"PLANT-2/0004711", "นายชื่อที่ยาวพอสมควร", "-5"},
          {"E2", "ก\n", "123456789.005"}}) {
      payroll::Slip slip{.employee = code, .fullName = name, .type = "M1"};
      slip.payDate = Date::fromYmd(2026, 1, 31);
      slip.payDays = 31;
      slip.add(payroll::kind::kSalary, payroll::Counts::Income, Currency::fromText(baht));
      writer->add(slip);
    }
    writer->finish();
    const std::string table = out.str();
    for (const char* line : c.lines)
      EXPECT_NE(table.find(line), std::string::npos) << line << table;
    std::istringstream lines(table.substr(table.find("\nEmployee") + 1));
    const int width = c.width == kAnyWidth ? 176 : c.width;
    for (std::string line; std::getline(lines, line) && !line.starts_with("Not shown");) {
      EXPECT_EQ(screens::displayWidth(line), width) << line;
    }
  }
}

TEST_F(PayrollCommand, FrozenSlipsStayInTheRegister) {
  const std::string before = payJanuary({"--format", "csv"}).out;
  execute("UPDATE KT7TEmpSlipPeriod SET TSAPStatus=0 WHERE TSAPDate<'2026-01-20'");
  for (const char* jobs : {"1", "3"}) {
    const Outcome again = payJanuary({"--format", "csv", "--jobs", jobs});
    EXPECT_EQ(again.out, before) << jobs;
    EXPECT_TRUE(says(again.err, "M2 on 2026-01-15 is frozen")) << again.err;
  }
}

TEST_F(PayrollCommand, BarOnATerminalCountsEverySlip) {
  std::string bar = "\r[" + std::string(40, '#') + "] 63 of 63 slips\x1b[K\r\x1b[K";
  for (const std::vector<std::string>& how :
       {std::vector<std::string>{}, {"--jobs", "2"}, {"--share"}}) {
    const Outcome outcome = payJanuary(how, {.err = true});
    EXPECT_EQ(outcome.exitCode, kDone) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with(bar)) << outcome.err;
  }
}

TEST(PayrollRegister, ThatIsBrokenOffSaysSo) {
  payroll::Slip slip;
  slip.employee = "E1";
  slip.payDate = Date::fromYmd(2026, 1, 31);
  const auto brokenOff = [&](const char* format, int slips) {
    std::ostringstream out;
    const auto writer = registerWriter(format, out, "2026-01");
    for (int i = 0; i < slips; ++i) writer->add(slip);
    writer->breakOff("lost \"here\"\nand there");
    return out.str();
  };
  const OrderedJson records = OrderedJson::parse(brokenOff("json", 2));
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[1]["EmployeeCode"], "E1");
  EXPECT_EQ(records[2], (OrderedJson{{"Error", "lost \"here\"\nand there"}}));
  const std::string table = brokenOff("table", 2);
  EXPECT_TRUE(table.ends_with("-\nNot complete: lost \"here\" and there\n")) << table;
  EXPECT_EQ(table.find("Total"), std::string::npos);
  const std::string csv = brokenOff("csv", 2);
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 3);
  for (const char* format : {"json", "table", "csv"}) EXPECT_EQ(brokenOff(format, 0), "");
}

TEST_F(PayrollCommand, SaysWhyItDoesNotPay) {
  const std::string bad = written("bad.csv",
                                  "Amount,Kind,PayDate,EmployeeCode,Quantity\n"
                                  "1,BONUS,2026-01-31,E0001,\n"
                                  "x,BONUS,2026-01-31,E0001,\n"
                                  "1,BONUS\n"
                                  "1,BONUS,2026-01-31,E9,\n");
  const std::string twice =
      written("twice.csv", "EmployeeCode,PayDate,Kind,Quantity,amount, Amount\n");
  const std::string unknown =
      written("more.csv", "Name,EmployeeCode,PayDate,Kind,Quantity,Amount\n");
  const std::string headless = written("headless.csv", "EmployeeCode,PayDate,Kind,Amount\n");
  const auto january = [](std::vector<std::string> options) {
    options.insert(options.begin(), {"payroll", "--month", "2026-01"});
    return options;
  };
  expectRefused({
      {{"payroll"}, kWrongUse, "--month is required"},
      {{"payroll", "--month", "January"}, kWrongUse, "'January' is no month"},
      {january({"--now", "2026-02-01"}), kWrongUse, "does not lie in"},
      {january({"--type", "X"}), kWrongUse, "no employee type 'X'"},
      {january({"--type", ""}), kWrongUse, "--type is empty"},
      {january({"--input", ""}), kWrongUse, "--input is empty"},
      {january({"--lease", "5"}), kWrongUse, "--share"},
      {january({"--format", "xml"}), kWrongUse, "--format"},
      {january({"--input", path("none.csv")}), kFailed, "cannot read"},
      {january({"--input", twice}), kFailed, "line 1: column Amount stands there twice"},
      {january({"--input", unknown}), kFailed, "has no column \"Name\""},
      {january({"--input", headless}), kFailed, "no column Quantity"},
      {january({"--input", bad}), kFailed, "input line 3: the amount 'x'"},
      {january({"--input", bad}), kFailed, "input line 4: 2 cells"},
      {january({"--input", bad}), kFailed, "input line 5: no employee 'E9'"},
  });
}

TEST_F(PayrollCommand, PaysTheOthersWhenOneFails) {
  execute("UPDATE KT7TEmployee SET TEmpSignDate=NULL WHERE TEmpCode='E0032'");
  const Outcome outcome = payJanuary({"--type", "H1", "--format", "json"});
  EXPECT_EQ(outcome.exitCode, kFailed);
  EXPECT_EQ(outcome.err.find("kt7hr: E0032 was not paid on 2026-01-10: no sign date\n"), 0u);
  EXPECT_TRUE(says(outcome.err, "1 failed, the others are paid")) << outcome.err;
  EXPECT_EQ(OrderedJson::parse(outcome.out).size(), 3u);
}

}  // namespace

}  // namespace kt7::cli
