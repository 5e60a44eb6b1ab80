#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <csignal>
#include <iostream>
#include <mutex>

#include <kt7/error.h>
#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/payroll/pay_month.h>
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "command.h"
#include "fronts/cli/line/advice.h"
#include "fronts/cli/line/open_company.h"
#include "fronts/cli/line/progress_bar.h"
#include "fronts/cli/line/signals.h"
#include "fronts/common/payroll_input.h"
#include "fronts/common/payroll_register.h"
#include "fronts/common/run_sentences.h"
#include "host/data/contract/database.h"
#include "payroll/retry/failure.h"

namespace kt7::cli {

namespace {

constexpr int kMostJobs = 64;
constexpr int kLongestLease = 3600;

struct PayrollOptions {
  DatabaseOptions database;
  std::string month;
  std::optional<std::string> type;
  std::optional<std::string> input;
  std::string format = "table";
  bool wide = false;
  int jobs = 1;
  bool share = false;
  int leaseSeconds = payroll::Sharing().leaseSeconds;
};

/// Shows the run as it goes: the register on standard output, the rest on standard error. Messages
/// come from any worker.
class RunView : public payroll::RunListener {
 public:
  RunView(Console& console, RegisterWriter& slips)
      : console_(console), slips_(slips), bar_(console) {}

  void paid(const payroll::Slip& slip) override {
    const std::lock_guard turn(turn_);
    bar_.clear();
    slips_.add(slip);
  }
  void standing(const payroll::Slip& slip) override { paid(slip); }
  void note(const std::string& text) override {
    const std::lock_guard turn(turn_);
    bar_.clear();
    say(console_, text);
  }
  void failed(const std::string& employee, Date payDate, const std::string& cause) override {
    note(notPaid(employee, payDate, cause));
  }
  bool wantsToStop() const override { return StopRequest::signal() != 0; }
  bool wantsProgress() const override { return console_.errIsTerminal; }
  void progress(int done, int total) override {
    const std::lock_guard turn(turn_);
    bar_.show(done, total, "slips");
  }
  host::HostPlatform::MessageView messages() {
    if (!console_.messageView) return [this](const std::string& text) { note(text); };
    return [this](const std::string& text) {
      const std::lock_guard turn(turn_);
      bar_.clear();
      console_.messageView(text);
    };
  }

 private:
  Console& console_;
  RegisterWriter& slips_;
  ProgressBar bar_;
  std::mutex turn_;
};

/// A script's variable that turned out empty must not pay everybody, or without the input.
void refuseEmpty(const std::optional<std::string>& given, const std::string& option) {
  if (given && given->empty()) throw WrongUse(option + " is empty; leave it out or give a value");
}

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

/// Whether the slips of the register lie in a file that is not the company's any more.
bool isMoved(const std::exception& error) {
  const auto* const database = dynamic_cast<const Error*>(&error);
  return database != nullptr && payroll::failureOf(*database) == payroll::Failure::Moved;
}

/// Ends a register in whose middle the run has ended.
void breakOff(RegisterWriter& slips, const std::exception& error, Console& console) {
  slips.breakOff(textWithAdvice(error));
  if (!slips.begun()) return;
  say(console, isMoved(error) ? "the run was broken off: the slips of the register were paid in "
                                "the file that was there "
                                "before; run the month again on the file that is the company's"
                              : "the run was broken off: the slips of the register are paid; run "
                                "the month again to pay "
                                "the others");
}

/// Ends a run that a signal asked to end.
int endBySignal(const payroll::RunInterrupted& interrupted, RegisterWriter& slips,
                Console& console) {
  breakOff(slips, interrupted, console);
  if (!slips.begun()) {
    say(console, "the run was interrupted before its register began; run the month again");
  }
  return StopRequest::exitCode();
}

void requireWritten(Console& console) {
  console.out.flush();
  if (console.out) return;
  throw std::runtime_error(
      "the register could not be written to its end; the month is paid all the same, running it "
      "again shows it");
}

void sayReasons(const payroll::RunStopped& stopped, Console& console) {
  if (const auto* const other = dynamic_cast<const payroll::SharedRunUnderWay*>(&stopped)) {
    say(console, "a shared run of " + other->run() +
                     " is under way: wait for its end, or take part in it with --share" +
                     (other->atWork().empty() ? "" : "; at work is " + other->atWork()));
    return;
  }
  for (const std::string& reason : stopped.reasons()) say(console, reason);
}

int refuse(const payroll::RunStopped& stopped, Console& console) {
  sayReasons(stopped, console);
  say(console, "nothing was paid: correct what is named above and run the month again");
  return stopped.cause() == payroll::RunStopped::Cause::WrongUse ? kWrongUse : kFailed;
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

/// What the run met and went on from; nothing where it met nothing.
void sayDisturbances(const payroll::RunOutcome& outcome, Console& console) {
  if (outcome.conflicts + outcome.losses + outcome.retries == 0) return;
  say(console, "met " + counted(outcome.conflicts, "conflict") + " and " +
                   counted(outcome.losses, "lost connection") + ", repeated work " +
                   counted(outcome.retries, "time"));
}

payroll::RunRequest requestOf(const PayrollOptions& given, const payroll::Month& month) {
  refuseEmpty(given.type, "--type");
  refuseEmpty(given.input, "--input");
  payroll::RunRequest request{month, given.type.value_or(""), {}, given.jobs, {}};
  if (given.input) request.input = readPayrollInput(*given.input);
  if (given.share) {
    request.sharing = payroll::Sharing{};
    request.sharing->name = processName();
    request.sharing->leaseSeconds = given.leaseSeconds;
  }
  return request;
}

payroll::RunOutcome pay(const PayrollOptions& given, Date now, const payroll::RunRequest& request,
                        RunView& view) {
  const host::HostPlatform::MessageView messages = view.messages();
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
  const auto slips = registerWriter(given.format, console.out, request.month.text(),
                                    {.width = given.wide ? kAnyWidth : console.width,
                                     .seeTheRest = "--wide or --format csv shows them",
                                     .forTerminal = console.outIsTerminal});
  openCompany(given.database.connectionString());
  // A reader who has seen enough must not end the run in its middle.
  std::signal(SIGPIPE, SIG_IGN);
  const StopRequest stopRequest;
  payroll::RunOutcome outcome;
  try {
    RunView view(console, *slips);
    outcome = pay(given, now, request, view);
  } catch (const payroll::RunInterrupted& interrupted) {
    return endBySignal(interrupted, *slips, console);
  } catch (const std::exception& error) {
    const auto* const stopped = dynamic_cast<const payroll::RunStopped*>(&error);
    if (stopped != nullptr && !slips->begun()) return refuse(*stopped, console);
    breakOff(*slips, error, console);
    throw;
  }
  slips->finish();
  sayDisturbances(outcome, console);
  if (outcome.failed != 0) {
    say(console, std::to_string(outcome.failed) +
                     " failed, the others are paid: correct what is named above and run the month "
                     "again");
  }
  requireWritten(console);
  return outcome.failed == 0 ? kDone : kFailed;
}

}  // namespace

void addPayroll(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<PayrollOptions>();
  CLI::App& command = addCommand(
      app, "payroll",
      "Pay a month: slip periods, slips, balances; prints the register. Running it again gives the "
      "same slips",
      "kt7hr payroll --month 2026-01 --input january.csv --format csv");
  command.footer(command.get_footer() +
                 "\n\nWithout --now the run takes place on the month's last day.");
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
      ->type_name("FORMAT")
      ->capture_default_str();
  command.add_flag("--wide", given->wide,
                   "Every column of the table, however long its lines become");
  command
      .add_option("--jobs", given->jobs,
                  "How many workers pay at a time; the register is the same for any number")
      ->check(CLI::Range(1, kMostJobs))
      ->capture_default_str();
  CLI::Option* share = command.add_flag(
      "--share", given->share,
      "Pay together with other processes that are given the same: each pays and prints "
      "a part, and takes over what one that ended left");
  command
      .add_option("--lease", given->leaseSeconds,
                  "Seconds without a sign of life after which a part is taken over")
      ->check(CLI::Range(2, kLongestLease))
      ->needs(share)
      ->capture_default_str();
  given->database.addTo(command);
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return payMonth(*given, line.console); }; });
}

}  // namespace kt7::cli
