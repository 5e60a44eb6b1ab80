#include "periods/amount_columns.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace kt7::periods {

namespace {

struct KindRow {
  std::string_view kind;
  std::string_view sum;
  std::string_view part;  // "" where the kind has one column only
};

constexpr auto kKinds = std::to_array<KindRow>({
    {"SALARY", "TEATAddSalary", "TEATSubSalary"},
    {"HOLIDAY", "TEATAddSalary", "TEATSubSalaryHol"},
    {"OT", "TEATAddOT", "TEATSubOT"},
    {"OT15", "TEATAddOT", "TEATSubOT15"},
    {"OT2", "TEATAddOT", "TEATSubOT2"},
    {"OT3", "TEATAddOT", "TEATSubOT3"},
    {"SFUND", "TEATCutSFund", ""},
    {"FUND", "TEATCutFund", ""},
    {"TIP", "TEATAddTIP", "TEATSubTip"},
    {"BONUS", "TEATAddTIP", "TEATSubTipBonus"},
    {"COMMISSION", "TEATAddTIP", "TEATSubTipCom"},
    {"PUNISH", "TEATCutPunish", ""},
    {"LOAN", "TEATCutLoan", ""},
    {"PTAX", "TEATCutTAX", ""},
    {"STAX", "TEATCutSTAX", ""},
    {"FINT", "TEATAmassFundInt", ""},
});

constexpr std::string_view kWelfare = "WELFARE";
constexpr int kWelfareKinds = 15;

bool is(std::optional<double> checkMoney, CheckMoney expected) {
  return checkMoney == static_cast<double>(expected);
}

/// "" for WELFARE, "1" to "15" for its numbered kinds, nothing for any other kind.
std::optional<std::string> welfareNumber(const std::string& kind) {
  if (kind == kWelfare) return "";
  for (int number = 1; number <= kWelfareKinds; ++number) {
    const std::string text = std::to_string(number);
    if (kind == std::string(kWelfare) + text) return text;
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> amountColumns(const ItemKind& item) {
  const std::string kind = upperCase(item.kind);
  const bool income = is(item.checkMoney, CheckMoney::Income);
  const auto* row = std::find_if(kKinds.begin(), kKinds.end(),
                                 [&](const KindRow& candidate) { return candidate.kind == kind; });
  if (row != kKinds.end()) {
    std::vector<std::string> columns{std::string(row->sum)};
    if (!row->part.empty()) columns.emplace_back(row->part);
    return columns;
  }
  if (const auto number = welfareNumber(kind)) {
    if (income) return {"TEATAddWelfare", "TEATSubAddWelfare" + *number};
    return {"TEATCutWelfare", "TEATSubCutWelfare" + *number};
  }
  const bool fixed = item.checkFix == 1.0;
  if (income) return {fixed ? "TEATAddMoneyFix" : "TEATAddMoneyNoFix"};
  return {fixed ? "TEATCutMoneyFix" : "TEATCutMoneyNoFix"};
}

std::vector<std::string> totalColumns(std::optional<double> checkMoney) {
  if (is(checkMoney, CheckMoney::Deduction)) return {"TEATCutTotal", "TEATCutAllTotal"};
  if (is(checkMoney, CheckMoney::Income)) return {"TEATAddTotal"};
  if (is(checkMoney, CheckMoney::Accumulation)) return {"TEATAmassTotal", "TEATCutAllTotal"};
  return {};
}

}  // namespace kt7::periods
