#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <iostream>
#include <mutex>

#include "command.h"
#include "host/data/database.h"
#include "host/roles/host_data_obj.h"
#include "host/roles/host_platform.h"
#include "payroll/store/pay_month.h"
#include "payroll_input.h"
#include "payroll_register.h"

namespace kt7::cli {

namespace {

constexpr int kMostJobs = 64;
constexpr int kLongestLease = 3600;

struct PayrollOptions {
  DatabaseOptions database;
  std::string month;
  std::string type;
  std::string input;
  std::string format = "table";
  int jobs = 1;
  bool share = false;
  int leaseSeconds = payroll::Sharing().leaseSeconds;
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

/// Shows messages one at a time, whichever worker they come from.
host::HostPlatform::MessageView messagesTo(Console& console) {
  if (console.messageView) return console.messageView;
  return [&console, turn = std::make_shared<std::mutex>()](const std::string& text) {
    const std::lock_guard lock(*turn);
    say(console, text);
  };
}

/// A platform and a data object of its own for every worker.
payroll::NewWorkplace workplaces(const PayrollOptions& given, Date now,
                                 const host::HostPlatform::MessageView& messages) {
  return [connection = given.database.connectionString(), now, messages] {
    auto platform = std::make_unique<host::HostPlatform>(now);
    platform->setMessageView(messages);
    return payroll::Workplace{std::move(platform), std::make_unique<host::HostDataObj>(connection),
                              [](DataObj& dataObj) { data::catchUp(dataObj.Connection()); }};
  };
}

/// What people find the process by: "payserver 4711".
std::string processName() {
  std::array<char, 64> machine{};
  gethostname(machine.data(), machine.size() - 1);
  return std::string(machine.data()) + " " + std::to_string(getpid());
}

std::string counted(int count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// What the run met and went on from; nothing where it met nothing.
void sayDisturbances(const payroll::RunOutcome& outcome, Console& console) {
  if (outcome.conflicts + outcome.losses + outcome.retries == 0) return;
  say(console, "met " + counted(outcome.conflicts, "conflict") + " and " +
                   counted(outcome.losses, "lost connection") + ", repeated work " +
                   counted(outcome.retries, "time"));
}

payroll::RunRequest requestOf(const PayrollOptions& given, const payroll::Month& month) {
  payroll::RunRequest request{month, given.type, {}, given.jobs, {}};
  if (!given.input.empty()) request.input = readPayrollInput(given.input);
  if (given.share) {
    request.sharing = payroll::Sharing{};
    request.sharing->name = processName();
    request.sharing->leaseSeconds = given.leaseSeconds;
  }
  return request;
}

payroll::RunOutcome pay(const PayrollOptions& given, Date now, const payroll::RunRequest& request,
                        const host::HostPlatform::MessageView& messages,
                        payroll::RunListener& view) {
  const payroll::NewWorkplace newWorkplace = workplaces(given, now, messages);
  if (request.sharing) return payroll::paySharedMonth(request, view, newWorkplace);
  host::HostPlatform platform(now);
  platform.setMessageView(messages);
  host::HostDataObj dataObj(given.database.connectionString());
  return payroll::payMonth(platform, dataObj, request, view, newWorkplace);
}

int payMonth(const PayrollOptions& given, Console& console) {
  const payroll::Month month = monthOf(given);
  const Date now = clockOf(given, month);
  const payroll::RunRequest request = requestOf(given, month);
  const host::HostPlatform::MessageView messages = messagesTo(console);
  const auto slips = registerWriter(given.format, console.out, request.month.text());
  payroll::RunOutcome outcome;
  try {
    RunView view(console, *slips);
    outcome = pay(given, now, request, messages, view);
  } catch (const payroll::RunStopped& stopped) {
    const bool wrongUse = stopped.cause() == payroll::RunStopped::Cause::WrongUse;
    return refuse(console, stopped.reasons(), wrongUse ? kWrongUse : kFailed);
  }
  slips->finish();
  sayDisturbances(outcome, console);
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
  command
      .add_option("--jobs", given->jobs,
                  "How many workers pay at a time; the register is the same for any number")
      ->check(CLI::Range(1, kMostJobs))
      ->capture_default_str();
  command.add_flag(
      "--share", given->share,
      "Pay together with other processes that are given the same: each pays and prints "
      "a part, and takes over what one that ended left");
  command
      .add_option("--lease", given->leaseSeconds,
                  "With --share: seconds without a sign of life after which a part is taken over")
      ->check(CLI::Range(2, kLongestLease))
      ->capture_default_str();
  given->database.addTo(command);
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return payMonth(*given, line.console); }; });
}

}  // namespace kt7::cli
