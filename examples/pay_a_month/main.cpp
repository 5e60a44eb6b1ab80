// Pays a month from a program and prints one line a slip; what could not be paid goes to the error
// stream.
#include <cstdio>
#include <string>

#include <kt7/host/host.h>
#include <kt7/payroll/payroll.h>

namespace {

class Printer : public kt7::payroll::RunListener {
 public:
  void paid(const kt7::payroll::Slip& slip) override {
    const auto amounts = kt7::payroll::registerAmounts(slip);
    std::printf("%s %s %s\n", slip.employee.c_str(), slip.payDate.isoDateText().c_str(),
                amounts.net.toText().c_str());
  }
  void note(const std::string& text) override { std::fprintf(stderr, "%s\n", text.c_str()); }
  void failed(const std::string& employee, kt7::Date, const std::string& cause) override {
    std::fprintf(stderr, "%s is not paid: %s\n", employee.c_str(), cause.c_str());
  }
};

}  // namespace

int main(int argc, char** argv) try {
  const auto month = argc == 3 ? kt7::payroll::Month::fromText(argv[2]) : std::nullopt;
  if (!month) return std::fputs("usage: pay_a_month DATABASE 2026-01\n", stderr), 2;
  kt7::host::Company company(std::string("Driver=SQLite;Database=") + argv[1]);
  company.platform().setNow(month->lastDay());
  Printer printer;
  const auto outcome =
      kt7::payroll::payMonth(company.platform(), company.data(), {.month = *month}, printer);
  return outcome.failed == 0 ? 0 : 1;
} catch (const std::exception& error) {
  return std::fprintf(stderr, "pay_a_month: %s\n", error.what()), 1;
}
