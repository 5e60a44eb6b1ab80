#include <kt7/payroll/item_kinds.h>

#include <algorithm>
#include <array>

namespace kt7::payroll {

namespace {

constexpr auto kKinds = std::to_array<ItemKind>({
    {kind::kSalary, "เงินเดือน/ค่าจ้าง", InputUse::Computed, Counts::Income},
    {kind::kSocialSecurity, "ประกันสังคม", InputUse::Computed, Counts::Deduction},
    {kind::kSocialSecurityEmployer, "ประกันสังคม (นายจ้าง)", InputUse::Computed, Counts::Accumulation},
    {kind::kFund, "กองทุนสำรองเลี้ยงชีพ", InputUse::Computed, Counts::Deduction},
    {kind::kFundEmployer, "กองทุนสำรองเลี้ยงชีพ (นายจ้าง)", InputUse::Computed, Counts::Accumulation},
    {kind::kTax, "ภาษีหัก ณ ที่จ่าย", InputUse::Computed, Counts::Deduction},
    {"DAYS", "", InputUse::Days, Counts::Income},
    {"HOURS", "", InputUse::Hours, Counts::Income},
    {"ABSENCE", "", InputUse::Absence, Counts::Income},
    {"OT", "ค่าล่วงเวลา 1 เท่า", InputUse::Overtime, Counts::Income, 1.0},
    {"OT15", "ค่าล่วงเวลา 1.5 เท่า", InputUse::Overtime, Counts::Income, 1.5},
    {"OT2", "ค่าล่วงเวลา 2 เท่า", InputUse::Overtime, Counts::Income, 2.0},
    {"OT3", "ค่าล่วงเวลา 3 เท่า", InputUse::Overtime, Counts::Income, 3.0},
    {kind::kBonus, "โบนัส", InputUse::Amount, Counts::Income},
    {"COMMISSION", "ค่านายหน้า", InputUse::Amount, Counts::Income},
    {"TIP", "เงินรางวัล", InputUse::Amount, Counts::Income},
    {"HOLIDAY", "ค่าทำงานวันหยุด", InputUse::Amount, Counts::Income},
    {"WELFARE", "สวัสดิการ", InputUse::Amount, Counts::Income, 0, true},
    {"LOAN", "เงินกู้", InputUse::Amount, Counts::Deduction},
    {"PUNISH", "ค่าปรับ", InputUse::Amount, Counts::Deduction},
    {"FUND", "เงินสะสม", InputUse::Amount, Counts::Deduction},
    {"FINT", "ดอกผลเงินสะสม", InputUse::Amount, Counts::Accumulation},
});

}  // namespace

ItemKind itemKind(std::string_view code) {
  const auto* found = std::find_if(kKinds.begin(), kKinds.end(),
                                   [&](const ItemKind& row) { return row.code == code; });
  if (found != kKinds.end()) return *found;
  return {code, code, InputUse::Amount, Counts::Income, 0, true};
}

}  // namespace kt7::payroll
