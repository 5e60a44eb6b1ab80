#include "payroll/rules/input.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cmath>

#include "door.h"
#include "fronts/common/payroll_input.h"

namespace kt7::fuzz {

namespace {

using payroll::Employee;
using payroll::SlipPeriod;

const Date kMidMonth = Date::fromYmd(2026, 1, 15);
const Date kMonthEnd = Date::fromYmd(2026, 1, 31);
const std::vector<SlipPeriod> kPeriods{{.type = "M1", .payDate = kMonthEnd},
                                       {.type = "D1", .number = 1, .payDate = kMidMonth},
                                       {.type = "D1", .number = 2, .payDate = kMonthEnd}};
const payroll::EmployeesByCode kEmployees{{"E1", Employee{.code = "E1", .type = "M1"}},
                                          {"E2", Employee{.code = "E2", .type = "D1"}},
                                          {"E3", Employee{.code = "E3", .type = "X"}}};

/// The text as a file without a place on the disk.
std::string fileOf(std::string_view text) {
  static const int file = memfd_create("input", MFD_CLOEXEC);
  const bool written =
      ftruncate(file, 0) == 0 && pwrite(file, text.data(), text.size(), 0) == ssize_t(text.size());
  require(written, "the file can be written");
  return "/proc/self/fd/" + std::to_string(file);
}

}  // namespace

void enter(std::string_view text) {
  std::vector<payroll::InputRow> rows;
  try {
    rows = cli::readPayrollInput(fileOf(text));
  } catch (const std::runtime_error&) {
    return;
  }
  const payroll::CheckedInput checked = checkInput(rows, kEmployees, kPeriods);
  std::size_t told = checked.problems.size() + static_cast<std::size_t>(checked.otherTypes);
  for (const auto& [code, employee] : kEmployees) {
    for (const Date payDate : {kMidMonth, kMonthEnd}) {
      for (const payroll::InputEntry& entry : checked.input.of(code, payDate)) {
        ++told;
        require(std::isfinite(entry.quantity) && entry.amount.tenThousandths() % 100 == 0,
                "an entry is whole satang and a number", entry.kind);
        require(payroll::itemKind(entry.kind).use != payroll::InputUse::Computed,
                "nothing reckoned is given");
      }
    }
  }
  require(told == rows.size(), "every row is an entry, a problem or of another type");
}

}  // namespace kt7::fuzz
