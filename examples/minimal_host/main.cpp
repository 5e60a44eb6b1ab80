// A host of the library: opens a company's database, asks an employee's hour rate and the tax to
// withhold from one month's pay, and prints both.
#include <cstdio>
#include <string>

#include <kt7/host/host.h>
#include <kt7/kt7.h>

int main(int argc, char** argv) try {
  if (argc != 4) return std::fputs("usage: minimal_host DATABASE EMPLOYEE PAY\n", stderr), 2;
  kt7::host::Company company(std::string("Driver=SQLite;Database=") + argv[1]);
  const auto pay = kt7::Currency::fromText(argv[3]);
  // The first month of a tax year. What is not named is 0.
  const kt7::MonthTax january{.pay = pay,
                              .payDate = kt7::Date::fromYmd(2026, 1, 31),
                              .incomeToDate = pay,
                              .allowances = kt7::Currency::fromWhole(60000)};

  std::printf("hour rate %.2f\n", company.hr().GETHOURRATE(argv[2], company.data()));
  std::printf("tax %.2f\n", static_cast<double>(ask(january, company.hr(), company.data())));
} catch (const kt7::Error& error) {
  return std::fprintf(stderr, "minimal_host: %s\n", error.what()), 1;
}
