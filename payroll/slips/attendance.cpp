#include "payroll/slips/attendance.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/wages.h"

namespace kt7::payroll {

namespace {

constexpr std::int16_t kRecord = 1;
constexpr std::int16_t kWithdraw = 0;
constexpr std::int16_t kActive = 1;
constexpr std::int16_t kInactive = 0;
constexpr std::int16_t kTipRate = 0;  // of the two rates of a row the one that is paid as TIP

bool namesAbsence(std::span<const InputEntry> input) {
  return std::any_of(input.begin(), input.end(), [](const InputEntry& entry) {
    return itemKind(entry.kind).use == InputUse::Absence;
  });
}

}  // namespace

Attendance::Attendance(RunServices& services)
    : services_(services), types_(services.company.typesWithAllowance()) {}

void Attendance::addAllowance(std::span<const InputEntry> input, Slip& slip) {
  if (!counts(slip.type)) return;
  slip.attendance = namesAbsence(input) ? Verdict::Inactive : Verdict::Active;
  if (slip.attendance == Verdict::Inactive) return;
  const std::int16_t before =
      services_.hr.GetActiveAmassTR(slip.employee, slip.payDate, "<", services_.dataObj);
  const double rate =
      services_.hr.GetActiveRateTR(slip.employee, add16(before, 1), kTipRate, services_.dataObj);
  if (rate != 0) slip.add(kind::kTip, Counts::Income, rounded(rate, services_.utility));
}

void Attendance::record(const Slip& slip) {
  if (slip.attendance == Verdict::None) return;
  services_.hr.UpdateEmpActiveAmassTR(kRecord,
                                      slip.attendance == Verdict::Active ? kActive : kInactive,
                                      slip.employee, slip.payDate, services_.dataObj);
}

void Attendance::withdraw(const KnownSlip& slip) {
  if (!counts(slip.type)) return;
  services_.hr.UpdateEmpActiveAmassTR(kWithdraw, kInactive, slip.employee, slip.payDate,
                                      services_.dataObj);
}

}  // namespace kt7::payroll
