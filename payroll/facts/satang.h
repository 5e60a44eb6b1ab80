#pragma once

#include <kt7/currency.h>

namespace kt7::payroll {

/// Rounded to whole satang, half away from zero.
Currency toSatang(Currency amount);

}  // namespace kt7::payroll
