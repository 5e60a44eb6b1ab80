#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kt7::periods {

/// How a slip item counts; any other number, and null, counts towards no total.
enum class CheckMoney { Deduction = 0, Income = 1, Accumulation = 2 };

/// A slip item as far as it decides the columns of the balance.
struct ItemKind {
  std::string kind;  // in any letter case: "SALARY", "OT15", "WELFARE3", ...
  std::optional<double> checkMoney;
  std::optional<double> checkFix;  // 1: a fixed amount
};

/// The balance columns that receive an item's amount for its kind: a sum and its part, or the one
/// column of the kind. Unlisted kinds go by income or not, and fixed or not.
std::vector<std::string> amountColumns(const ItemKind& item);

/// The totals that receive an item's amount. Intended 2: an accumulation counts into the total of
/// all deductions too.
std::vector<std::string> totalColumns(std::optional<double> checkMoney);

}  // namespace kt7::periods
