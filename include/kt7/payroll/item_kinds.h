#pragma once

#include <string>
#include <string_view>

#include <kt7/export.h>

namespace kt7::payroll {

/// How an item counts in its slip, as the database numbers it.
enum class Counts { Deduction = 0, Income = 1, Accumulation = 2 };

/// What an input row of a kind does.
enum class InputUse {
  Days,      // replaces the days paid
  Hours,     // replaces the hours paid
  Absence,   // days taken off
  Overtime,  // hours at a multiple of the hour rate
  Amount,    // an item of the amount
  Computed   // reckoned by the run itself, never given
};

struct ItemKind {
  std::string_view code;
  std::string_view name;  // on the slip
  InputUse use;
  Counts counts;
  double times = 0;              // the hour rate, of overtime
  bool negativeDeducts = false;  // a negative amount is a deduction, not a smaller income
};

namespace kind {
inline constexpr std::string_view kSalary = "SALARY";
inline constexpr std::string_view kBonus = "BONUS";
inline constexpr std::string_view kTip = "TIP";
inline constexpr std::string_view kSocialSecurity = "STAX";
inline constexpr std::string_view kSocialSecurityEmployer = "STAXCO";
inline constexpr std::string_view kFund = "SFUND";
inline constexpr std::string_view kFundEmployer = "SFUNDCO";
inline constexpr std::string_view kTax = "PTAX";
}  // namespace kind

/// The kind of that code, given in upper case. An unlisted code is an income by amount, named by
/// its code. The result's views refer to `code`.
KT7_API ItemKind itemKind(std::string_view code);

}  // namespace kt7::payroll
