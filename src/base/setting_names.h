#pragma once

/// The keys in KT7TSetting that the rules ask for, as hosts spell them.
namespace kt7::setting_name {

inline constexpr const char* kExpensesPercent = "MoneyExpendses";
inline constexpr const char* kExpensesNotOver = "MoneyExpensesNotOver";
inline constexpr const char* kSelfAllowance = "MoneySale";
inline constexpr const char* kSocialSecurityMinPay = "STAXMinRate";
inline constexpr const char* kSocialSecurityMaxPay = "STAXMaxRate";
inline constexpr const char* kSocialSecurityPercent = "STAXSelfRate";
inline constexpr const char* kEmployerPercent = "STAXEmployerRate";
inline constexpr const char* kCompanyCode = "CompanyCode";
inline constexpr const char* kCompanyName = "CompanyName";
inline constexpr const char* kHeadOfficeBranch = "HeadOfficeBranchCode";

}  // namespace kt7::setting_name
