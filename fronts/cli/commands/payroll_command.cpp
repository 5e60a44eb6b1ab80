#include <CLI/CLI.hpp>
#include <iostream>

#include "command.h"
#include "host/roles/host_data_obj.h"
#include "host/roles/host_platform.h"
#include "payroll/store/pay_month.h"
#include "payroll_input.h"
#include "payroll_register.h"

namespace kt7::cli {

namespace {

struct PayrollOptions {
  DatabaseOptions database;
  std::string month;
  std::string type;
  std::string input;
  std::string format = "table";
};

/// Shows the run as it goes: the register on standard output, the rest on standard error.
class RunView : public payroll::RunListener {
 public:
  RunView(Console& console, RegisterWriter& slips) : console_(console), slips_(slips) {}
  ~RunView() override { clearBar(); }

  void paid(const payroll::Slip& slip) override {
    clearBar();
    slips_.add(slip);
  }
  void note(const std::string& text) override {
    clearBar();
    say(console_, text);
  }
  void failed(const std::string& employee, Date payDate, const std::string& cause) override {
    clearBar();
    say(console_, employee + " was not paid on " + payDate.isoDateText() + ": " + cause);
  }
  bool wantsProgress() const override { return console_.errIsTerminal; }
  void progress(int done, int total) override {
    constexpr int kCells = 40;
    if (total == 0) return;
    const int filled = kCells * done / total;
    console_.out.flush();
    console_.err << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
                 << std::string(static_cast<std::size_t>(kCells - filled), ' ') << "] " << done
                 << " of " << total << std::flush;
    barShown_ = true;
  }

 private:
  void clearBar() {
    if (!barShown_) return;
    console_.err << "\r\x1b[K" << std::flush;
    barShown_ = false;
  }

  Console& console_;
  RegisterWriter& slips_;
  bool barShown_ = false;
};

payroll::Month monthOf(const PayrollOptions& given) {
  const auto month = payroll::Month::fromText(given.month);
  if (!month) throw WrongUse("'" + given.month + "' is no month for --month; write 2026-01");
  return *month;
}

Date clockOf(const PayrollOptions& given, const payroll::Month& month) {
  const Date now = given.database.clock().value_or(month.lastDay());
  if (!month.days().contains(now.datePart())) {
    throw WrongUse("--now " + now.isoDateText() + " does not lie in the month " + month.text());
  }
  return now;
}

int refuse(Console& console, const std::vector<std::string>& reasons, int exitCode) {
  for (const std::string& reason : reasons) say(console, reason);
  say(console, "nothing was paid: correct what is named above and run the month again");
  return exitCode;
}

int payMonth(const PayrollOptions& given, Console& console) {
  payroll::RunRequest request{monthOf(given), given.type, {}};
  host::HostPlatform platform(clockOf(given, request.month));
  platform.setMessageView(console.messageView
                              ? console.messageView
                              : [&console](const std::string& text) { say(console, text); });
  host::HostDataObj dataObj(given.database.connectionString());
  if (!given.input.empty()) request.input = readPayrollInput(given.input);
  const auto slips = registerWriter(given.format, console.out, request.month.text());
  payroll::RunOutcome outcome;
  try {
    RunView view(console, *slips);
    outcome = payroll::payMonth(platform, dataObj, request, view);
  } catch (const payroll::RunStopped& stopped) {
    const bool wrongUse = stopped.cause() == payroll::RunStopped::Cause::WrongUse;
    return refuse(console, stopped.reasons(), wrongUse ? kWrongUse : kFailed);
  }
  slips->finish();
  if (outcome.failed == 0) return kDone;
  say(console, std::to_string(outcome.failed) +
                   " failed, the others are paid: correct what is named above and run the month "
                   "again");
  return kFailed;
}

}  // namespace

void addPayroll(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<PayrollOptions>();
  CLI::App& command = addCommand(
      app, "payroll",
      "Pay a month: slip periods, slips, balances; prints the register. Running it again gives the "
      "same slips",
      "kt7hr payroll --month 2026-01 --input january.csv --format csv");
  command.add_option("--month", given->month, "The month, as 2026-01")
      ->required()
      ->type_name("MONTH");
  command.add_option("--type", given->type, "Only this employee type, as M1")->type_name("TYPE");
  command
      .add_option("--input", given->input,
                  "The month's time and amounts: EmployeeCode, PayDate, Kind, Quantity, Amount")
      ->type_name("FILE.csv");
  command.add_option("--format", given->format, "table, csv or json")
      ->check(CLI::IsMember({"table", "csv", "json"}))
      ->capture_default_str();
  given->database.addTo(command);
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return payMonth(*given, line.console); }; });
}

}  // namespace kt7::cli
