// Pays a month from a program and prints one line a slip; what is not paid goes to the error
// stream. A second run gives the same slips.
#include <csignal>
#include <cstdio>
#include <string>

#include <kt7/host/host.h>
#include <kt7/payroll/payroll.h>

namespace payroll = kt7::payroll;

volatile std::sig_atomic_t interrupted = 0;

/// Called in this thread, however many workers pay. A slip is told when it stands in the database.
class Printer : public payroll::RunListener {
 public:
  void paid(const payroll::Slip& slip) override {
    std::printf("%s %s %s\n", slip.employee.c_str(), slip.payDate.isoDateText().c_str(),
                payroll::registerAmounts(slip).net.toText().c_str());
  }
  void standing(const payroll::Slip& slip) override { paid(slip); }
  void failed(const std::string& employee, kt7::Date, const std::string& cause) override {
    std::fprintf(stderr, "%s is not paid: %s\n", employee.c_str(), cause.c_str());
  }
  void note(const std::string& text) override { std::fprintf(stderr, "%s\n", text.c_str()); }
  bool wantsToStop() const override { return interrupted != 0; }
};

int main(int argc, char** argv) try {
  const auto month = argc == 3 ? payroll::Month::fromText(argv[2]) : std::nullopt;
  if (!month) return std::fputs("usage: pay_a_month DATABASE 2026-01\n", stderr), 2;
  std::signal(SIGINT, [](int) { interrupted = 1; });
  kt7::host::Company company(std::string("Driver=SQLite;Database=") + argv[1]);
  company.platform().setNow(month->lastDay());  // the run takes place in the month that it pays
  Printer printer;
  const auto run =
      payroll::payMonth(company.platform(), company.data(), {.month = *month}, printer);
  return run.failed == 0 ? 0 : 1;
} catch (const payroll::RunStopped& stopped) {  // before anybody was paid
  for (const auto& reason : stopped.reasons()) std::fprintf(stderr, "%s\n", reason.c_str());
  return 1;
} catch (const std::exception& error) {
  return std::fprintf(stderr, "pay_a_month: %s\n", error.what()), 1;
}
