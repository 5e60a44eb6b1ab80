#pragma once

#include "payroll/facts/pay_sums.h"
#include "payroll/facts/slip_period.h"
#include "payroll/ports/company.h"
#include "payroll/store/records.h"

/// The columns that the run reads, and what a row of them says.
namespace kt7::payroll {

inline constexpr const char* kEmployeeTables =
    " FROM KT7TEmployee LEFT JOIN KT7TEmployee2 ON TEm2TEmpCode=TEmpCode";

inline constexpr const char* kEmployeeColumns =
    "TEmpCode, TEmpPrefix, TEmpFirstName, TEmpLastName, TEmpTEmTCode, TEmpTBraCode, TEmpSignDate, "
    "TEmpResignDate, TEmpSalary, TEmpCustom, TEm2SkipSlip, TEm2SocialInsured, TEm2FundMember, "
    "TEm2FundRate, "
    "TEm2FundSignDate, TEm2SpouseNoIncome, TEm2Children, TEm2ChildrenSecondSince2018, TEm2Parents, "
    "TEm2LifeInsurance, TEm2HomeInterest, TEm2CutWaive, TEm2CutStudySup";

/// A slip with its balance. The employer's shares are no columns of a balance: the items have them.
inline constexpr const char* kSlipTables =
    " FROM KT7TEmpSlipDoc LEFT JOIN KT7TEmpAmassType ON TEATTEmpCode=TEpSTEmpCode AND "
    "TEATPaymentDate=TEpsTSaPDate AND TEATTEmTCode=TEPSTEmTCode AND "
    "TEATCheckGroup=TEPSCheckGroup AND TEATBalanceFlag=0";

inline constexpr const char* kSlipColumns =
    "TEPSNo, TEpSTEmpCode, TEPSTEmTCode, TEpsTSaPDate, TEpsStartDate, TEpsEndDate, "
    "TEATAddTotal, TEATSubTipBonus, TEATSubSalary, TEATCutSTAX, TEATCutSFund, TEATCutTAX, "
    "(SELECT SUM(TSmbDebit+TSmbCrebit) FROM KT7TEmpSlipItem WHERE TSmbTEPSNo=TEPSNo AND "
    "TSmbTAMTAlias='STAXCO') AS EmployerSTAX, "
    "(SELECT SUM(TSmbDebit+TSmbCrebit) FROM KT7TEmpSlipItem WHERE TSmbTEPSNo=TEPSNo AND "
    "TSmbTAMTAlias='SFUNDCO') AS EmployerSFUND";

/// A slip as it was paid, with its employee's name.
inline constexpr const char* kPaidSlipColumns =
    "TEPSNo, TEpSTEmpCode, TEPSTEmTCode, TEpsTSaPDate, TEpsStartDate, TEpsEndDate, "
    "TEPSTotalWorkDay, TEmpPrefix, TEmpFirstName, TEmpLastName FROM KT7TEmpSlipDoc LEFT JOIN "
    "KT7TEmployee ON TEmpCode=TEpSTEmpCode";

inline constexpr const char* kItemColumns =
    "TSmbTEPSNo, TSmbTAMTAlias, TSmbName, TSmbQuantity, TSmbCheckMoney, TSmbDebit, TSmbCrebit FROM "
    "KT7TEmpSlipItem";

TypeRow typeIn(ado::Recordset& row);
SlipPeriod periodIn(ado::Recordset& row);
Employee employeeIn(ado::Recordset& row, const Records& records);
KnownSlip slipIn(ado::Recordset& row);
Slip paidSlipIn(ado::Recordset& row);
SlipItem itemIn(ado::Recordset& row);
/// Income, bonus, salary, social security, fund and tax.
PaySums balanceSumsIn(ado::Recordset& row);

}  // namespace kt7::payroll
