#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/payroll/input_row.h>
#include <kt7/payroll/pay_month.h>
#include <kt7/payroll/register_amounts.h>
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "schema/amass_columns.h"
#include "support/company.h"

namespace kt7::payroll {

/// The columns of a row as one text, null as "-".
inline std::string joined(std::initializer_list<const char*> columns) {
  std::string text;
  for (const char* column : columns) {
    text += (text.empty() ? "COALESCE(" : "||'|'||COALESCE(") + test::asText(std::string(column)) +
            ",'-')";
  }
  return text;
}

/// What one run told.
struct Told : RunListener {
  void paid(const Slip& slip) override { slips.push_back(slip); }
  void standing(const Slip& slip) override { frozen.push_back(slip); }
  void note(const std::string& text) override { notes.push_back(text); }
  void failed(const std::string& employee, Date, const std::string& cause) override {
    failures.push_back(employee + ": " + cause);
  }

  /// The slip of an employee, the last one where there are several.
  const Slip& slip(const std::string& employee) const {
    const auto found = std::find_if(slips.rbegin(), slips.rend(),
                                    [&](const Slip& slip) { return slip.employee == employee; });
    if (found == slips.rend()) throw std::runtime_error("no slip of " + employee);
    return *found;
  }
  RegisterAmounts amounts(const std::string& employee) const {
    return registerAmounts(slip(employee));
  }
  int slipsOf(const std::string& employee) const {
    return static_cast<int>(std::count_if(
        slips.begin(), slips.end(), [&](const Slip& slip) { return slip.employee == employee; }));
  }
  bool noted(const std::string& part) const {
    return std::any_of(notes.begin(), notes.end(), [&](const std::string& note) {
      return note.find(part) != std::string::npos;
    });
  }

  std::vector<Slip> slips;
  std::vector<Slip> frozen;  // told as they stand
  std::vector<std::string> notes;
  std::vector<std::string> failures;
  std::vector<std::string> reasons;  // why the run stopped
  RunOutcome outcome;
};

/// The sample company in a database of its own, to be paid month by month.
class PaidCompany : public testing::Test {
 protected:
  PaidCompany() {
    test::makeSampleCompany(database_);
    platform_.setMessageView([this](const std::string& text) { messages_.push_back(text); });
  }

  Told pay(int month, std::vector<InputRow> input = {}, const std::string& type = "") {
    return payIn(database_.connectionString(), month, std::move(input), type);
  }
  Told payIn(const std::string& connectionString, int month, std::vector<InputRow> input,
             const std::string& type = "") {
    return payOn(connectionString, {Month(2026, month), type, std::move(input)});
  }
  Told payOn(const std::string& connectionString, const RunRequest& request,
             const NewWorkplace& newWorkplace = {}) {
    Told told;
    host::HostDataObj dataObj(connectionString);
    platform_.setNow(request.month.lastDay());
    try {
      told.outcome = payMonth(platform_, dataObj, request, told, newWorkplace);
    } catch (const RunStopped& stopped) {
      told.reasons = stopped.reasons();
    }
    EXPECT_EQ(dataObj.opens(), 0);
    return told;
  }

  void sql(const std::string& text) { test::execute(database_.connectionString(), text); }
  /// The column "line" of every row.
  std::vector<std::string> lines(const std::string& query) {
    return test::linesOf(database_.connectionString(), query);
  }
  /// Everything that the run writes, as text, but for the keys that the engine gives.
  std::vector<std::string> books() {
    std::string balance = joined({"TEATTEmpCode", "TEATTEmTCode", "TEATPaymentDate"});
    for (const std::string_view column : schema::kAmassMoneyColumns) {
      balance += "||'|'||" + std::string(column);
    }
    std::vector<std::string> all;
    for (const std::string& query :
         {joined({"TEPSNo", "TEpSTEmpCode", "TEPSTEmTCode", "TEPSSalaryPeriod", "TEpsTSaPDate",
                  "TEpsStartDate", "TEpsEndDate", "TEPSTotalWorkDay", "TEPSNetTotal",
                  "TEPSFlag3"}) +
              " AS line FROM KT7TEmpSlipDoc ORDER BY TEPSNo",
          joined({"TSmbTEPSNo", "TSmbLn", "TSmbTAMTAlias", "TSmbName", "TSmbQuantity",
                  "TSmbCheckMoney", "TSmbDebit", "TSmbCrebit"}) +
              " AS line FROM KT7TEmpSlipItem ORDER BY TSmbTEPSNo, TSmbLn",
          balance + " AS line FROM KT7TEmpAmassType ORDER BY TEATTEmpCode, TEATPaymentDate",
          joined({"TEHPTEmpCode", "TEHPLn", "TEHPStartDate", "TEHPSalary"}) +
              " AS line FROM KT7TEmpHisPosition ORDER BY TEHPTEmpCode, TEHPLn",
          joined({"TEAATEmpCode", "TEAATSaPDate", "TEAAType"}) +
              " AS line FROM KT7TEmpActiveAmass ORDER BY TEAATEmpCode, TEAATSaPDate"}) {
      const auto rows = lines("SELECT " + query);
      all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
  }

  /// Enough of two types to keep several pages under way.
  void hire(int employees) {
    std::string people, more;
    for (int i = 0; i < employees; ++i) {
      const std::string code = (i == 0 ? "('Z" : ", ('Z") + std::to_string(10000 + i) + "'";
      const bool daily = i % 5 == 0;
      people += code + ", 'Z', " + (daily ? "'W4'" : "'M1'") + ", '2024-01-01', " +
                std::to_string(daily ? 500 : 15000 + i) + ", '00')";
      more += code + ", 1)";
    }
    sql("INSERT INTO KT7TEmployee (TEmpCode, TEmpFirstName, TEmpTEmTCode, TEmpSignDate, "
        "TEmpSalary, TEmpTBraCode) VALUES " +
        people);
    sql("INSERT INTO KT7TEmployee2 (TEm2TEmpCode, TEm2SocialInsured) VALUES " + more);
  }

  Workplace workplace() {
    auto platform = std::make_unique<host::HostPlatform>(Month(2026, 1).lastDay());
    return {std::move(platform), std::make_unique<host::HostDataObj>(database_.connectionString())};
  }
  /// As if the month had never been paid.
  void forgetTheMonth() {
    for (const char* const table : {"KT7TEmpSlipDoc", "KT7TEmpSlipItem", "KT7TEmpAmassType",
                                    "KT7TEmpActiveAmass", "KT7TEmpHisPosition"}) {
      sql(std::string("DELETE FROM ") + table);
    }
  }
  int count(const std::string& from) {
    return std::stoi(lines("SELECT COUNT(*) AS line FROM " + from).front());
  }

  test::TemporaryDatabase database_;
  host::HostPlatform platform_;
  std::vector<std::string> messages_;
};

inline Currency baht(const char* text) { return Currency::fromText(text); }

inline InputRow input(const char* employee, const char* payDate, const char* kind,
                      const char* quantity, const char* amount) {
  return {2, employee, payDate, kind, quantity, amount, ""};
}

}  // namespace kt7::payroll
