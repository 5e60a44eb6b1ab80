#include "payroll/facts/satang.h"

namespace kt7::payroll {

namespace {

constexpr std::int64_t kSatang = Currency::kScale / 100;

}  // namespace

Currency toSatang(Currency amount) {
  const std::int64_t count = amount.tenThousandths();
  const std::int64_t half = count < 0 ? -kSatang / 2 : kSatang / 2;
  return Currency::fromTenThousandths((count / kSatang + (count % kSatang + half) / kSatang) *
                                      kSatang);
}

}  // namespace kt7::payroll
