// A host of the library: opens a company's database, asks an employee's hour rate and the tax to
// withhold from one month's pay, and prints both.
#include <cstdio>
#include <string>

#include <kt7/error.h>
#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/hr_object.h>

int main(int argc, char** argv) try {
  if (argc != 4) return std::fputs("usage: minimal_host DATABASE EMPLOYEE PAY\n", stderr), 2;
  kt7::host::HostPlatform platform;
  kt7::HRObject hr(platform);
  kt7::host::HostDataObj company(std::string("Driver=SQLite;Database=") + argv[1]);

  const auto pay = kt7::Currency::fromText(argv[3]);
  const auto payDate = kt7::Date::fromYmd(2026, 1, 31);
  const auto signDate = kt7::Date::fromYmd(2020, 1, 1);
  const kt7::Currency none;
  auto reduce = kt7::Currency::fromWhole(60000);  // the taxpayer's own allowance
  kt7::Currency studySupport, donation, waiver;
  std::int16_t moreMonths = 12;  // those left in the year of the pay date
  bool fixToTen = false;
  const float tax = hr.CalcPTAX4(company, pay, none, signDate, 0, 0, moreMonths, reduce, none,
                                 studySupport, donation, waiver, pay, fixToTen, payDate, none);

  std::printf("hour rate %.2f\n", hr.GETHOURRATE(argv[2], company));
  std::printf("tax %.2f\n", static_cast<double>(tax));
} catch (const kt7::Error& error) {
  return std::fprintf(stderr, "minimal_host: %s\n", error.what()), 1;
}
