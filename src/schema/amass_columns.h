#pragma once

#include <array>
#include <string_view>

namespace kt7::schema {

/// The money columns of KT7TEmpAmassType that a new balance row starts with at 0, in the order in
/// which they are written. Intended 1: the welfare columns 10 to 15 are created under an
/// 18-character spelling and posted to under their full names.
inline constexpr auto kAmassMoneyColumns = std::to_array<std::string_view>(
    {"TEATAddSalary",      "TEATSubSalary",      "TEATSubSalaryHol",   "TEATSubSalaryChild",
     "TEATAddOT",          "TEATSubOT",          "TEATSubOT15",        "TEATSubOT2",
     "TEATSubOT3",         "TEATCutFund",        "TEATCutSFund",       "TEATAddTIP",
     "TEATSubTip",         "TEATSubTipBonus",    "TEATSubTipCom",      "TEATCutPunish",
     "TEATAddWelfare",     "TEATSubAddWelfare",  "TEATSubAddWelfare1", "TEATSubAddWelfare2",
     "TEATSubAddWelfare3", "TEATSubAddWelfare4", "TEATSubAddWelfare5", "TEATSubAddWelfare6",
     "TEATSubAddWelfare7", "TEATSubAddWelfare8", "TEATSubAddWelfare9", "TEATSubAddWelfar10",
     "TEATSubAddWelfar11", "TEATSubAddWelfar12", "TEATSubAddWelfar13", "TEATSubAddWelfar14",
     "TEATSubAddWelfar15", "TEATCutWelfare",     "TEATSubCutWelfare",  "TEATSubCutWelfare1",
     "TEATSubCutWelfare2", "TEATSubCutWelfare3", "TEATSubCutWelfare4", "TEATSubCutWelfare5",
     "TEATSubCutWelfare6", "TEATSubCutWelfare7", "TEATSubCutWelfare8", "TEATSubCutWelfare9",
     "TEATSubCutWelfar10", "TEATSubCutWelfar11", "TEATSubCutWelfar12", "TEATSubCutWelfar13",
     "TEATSubCutWelfar14", "TEATSubCutWelfar15", "TEATCutLoan",        "TEATCutTAX",
     "TEATCutSTAX",        "TEATAmassFundInt",   "TEATAddMoneyFix",    "TEATAddMoneyNoFix",
     "TEATCutMoneyFix",    "TEATCutMoneyNoFix",  "TEATCutTotal",       "TEATCutAllTotal",
     "TEATAddTotal",       "TEATAmassTotal"});
static_assert(kAmassMoneyColumns.size() == 62);

}  // namespace kt7::schema
