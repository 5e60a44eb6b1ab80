#include "payroll/store/slip_store.h"

#include <cmath>

#include <kt7/error.h>
#include <kt7/payroll/register_amounts.h>
#include "base/text.h"
#include "payroll/facts/slip_number.h"
#include "payroll/ports/company.h"
#include "payroll/store/unit_of_work.h"

namespace kt7::payroll {

namespace {

std::string salaryPeriodText(const Slip& slip) {
  return padded(slip.payDate.year(), 4) + "-" + padded(slip.payDate.month(), 2) + "/" +
         std::to_string(slip.periodNumber);
}

/// Days and hours, which an engine may keep with fewer digits than a double has.
bool isSame(double kept, double written) {
  constexpr double kLeastDifference = 0.00005;
  return std::abs(kept - written) < kLeastDifference;
}

void setItem(ado::Recordset& row, const Slip& slip, std::int32_t line, const SlipItem& item) {
  const bool income = item.counts == Counts::Income;
  row.set("TSmbTEPSNo", slip.number);
  row.set("TSmbLn", line);
  row.set("TSmbTAMTAlias", item.kind);
  row.set("TSmbName", item.name);
  row.set("TSmbQuantity", item.quantity);
  row.set("TSmbCheckMoney", static_cast<std::int16_t>(item.counts));
  row.set("TSmbCheckFix", std::int16_t{0});
  row.set("TSmbDebit", income ? item.amount : Currency());
  row.set("TSmbCrebit", income ? Currency() : item.amount);
}

}  // namespace

/// The posting that follows looks the type up by the code, and would write a balance that nobody
/// finds where a rename came in between.
void SlipStore::requireEmployee(const Slip& slip) {
  auto employee = records_.openLocked("SELECT TEmpTEmTCode FROM KT7TEmployee WHERE TEmpCode=" +
                                      records_.quoted(slip.employee));
  if (!employee->Eof() && textIn(*employee, "TEmpTEmTCode") == slip.type) return;
  throw EmployeeChanged(slip.employee + " is no employee of type " + slip.type +
                        " any more: the code or the type was changed while the month was paid");
}

/// The balance goes by the employee's code.
void SlipStore::requireOwner(const KnownSlip& slip) {
  auto document = records_.openLocked("SELECT TEpSTEmpCode FROM KT7TEmpSlipDoc WHERE TEPSNo=" +
                                      records_.quoted(slip.number));
  if (document->Eof() || textIn(*document, "TEpSTEmpCode") == slip.employee) return;
  throw EmployeeChanged("slip " + slip.number + " is not that of " + slip.employee +
                        " any more: the code was changed while the month was paid");
}

void SlipStore::save(const Slip& slip) {
  requireEmployee(slip);
  saveDocument(slip);
  saveItems(slip);
}

void SlipStore::saveDocument(const Slip& slip) {
  auto document = records_.open(
      "SELECT * FROM KT7TEmpSlipDoc WHERE TEpSTEmpCode=" + records_.quoted(slip.employee) +
          " AND TEpsTSaPDate=" + records_.dateText(slip.payDate) +
          " AND TEPSTEmTCode=" + records_.quoted(slip.type) + " AND " + ofRun("TEPS"),
      ado::kOptimistic);
  if (document->Eof()) {
    document->AddNew();
  } else if (textIn(*document, "TEPSNo") != slip.number) {
    // Another run wrote its slip after this one had looked: paying now would pay twice.
    raiseStatementFailed("slip " + textIn(*document, "TEPSNo") + " was written meanwhile");
  }
  document->set("TEPSNo", slip.number);
  document->set("TEpSTEmpCode", slip.employee);
  document->set("TEPSTEmTCode", slip.type);
  document->set("TEPSCheckGroup", kCheckGroup);
  document->set("TEPSSalaryPeriod", salaryPeriodText(slip));
  document->set("TEpsTSaPDate", slip.payDate);
  document->set("TEpsStartDate", slip.span.first);
  document->set("TEpsEndDate", slip.span.last);
  document->set("TEPSTotalWorkDay", slip.payDays);
  document->set("TEPSTotalLeaveHDay", 0.0);
  document->set("TEPSNetTotal", registerAmounts(slip).net);
  document->set("TEPSFlag1", std::int16_t{1});
  document->set("TEPSFlag3", records_.now());
  document->Update();
}

void SlipStore::saveItems(const Slip& slip) {
  const std::string ofSlip =
      " FROM KT7TEmpSlipItem WHERE TSmbTEPSNo=" + records_.quoted(slip.number);
  auto rows = records_.open("SELECT *" + ofSlip + " ORDER BY TSmbLn", ado::kOptimistic);
  bool standing = !rows->Eof();
  std::int32_t line = 0;
  for (const SlipItem& item : slip.items) {
    if (!standing) rows->AddNew();
    setItem(*rows, slip, ++line, item);
    rows->Update();
    if (!standing) continue;
    rows->MoveNext();
    standing = !rows->Eof();
  }
  if (standing) records_.execute("DELETE" + ofSlip + " AND TSmbLn>" + std::to_string(line));
}

void SlipStore::remove(const KnownSlip& slip) {
  requireOwner(slip);
  records_.execute("DELETE FROM KT7TEmpSlipItem WHERE TSmbTEPSNo=" + records_.quoted(slip.number));
  records_.execute("DELETE FROM KT7TEmpSlipDoc WHERE TEPSNo=" + records_.quoted(slip.number));
  records_.execute("DELETE FROM KT7TEmpAmassType WHERE TEATBalanceFlag=0 AND TEATTEmpCode=" +
                   records_.quoted(slip.employee) +
                   " AND TEATCheckGroup=" + std::to_string(kCheckGroup) + " AND TEATTEmTCode IN " +
                   // Posted for an employee whose code had just been changed it has no type.
                   records_.listOf({slip.type, ""}) +
                   " AND TEATPaymentDate=" + records_.dateText(slip.payDate));
}

bool SlipStore::stands(const Slip& slip) {
  const Currency net = registerAmounts(slip).net;
  auto document = records_.open(
      "SELECT TEPSNetTotal, TEATNetTotal, TEpsStartDate, TEpsEndDate, TEPSTotalWorkDay FROM "
      "KT7TEmpSlipDoc INNER JOIN KT7TEmpAmassType ON "
      "TEATTEmpCode=TEpSTEmpCode AND TEATPaymentDate=TEpsTSaPDate AND TEATTEmTCode=TEPSTEmTCode "
      "AND TEATCheckGroup=TEPSCheckGroup AND TEATBalanceFlag=0 WHERE TEPSNo=" +
      records_.quoted(slip.number) + " AND TEpSTEmpCode=" + records_.quoted(slip.employee) +
      " AND " + ofRun("TEPS"));
  if (document->Eof() || moneyIn(*document, "TEPSNetTotal") != net ||
      moneyIn(*document, "TEATNetTotal") != net ||
      document->get("TEpsStartDate").toDate() != slip.span.first ||
      document->get("TEpsEndDate").toDate() != slip.span.last ||
      !isSame(numberIn(*document, "TEPSTotalWorkDay"), slip.payDays)) {
    return false;
  }
  auto rows = records_.open(
      "SELECT TSmbTAMTAlias, TSmbQuantity, TSmbDebit, TSmbCrebit FROM KT7TEmpSlipItem WHERE "
      "TSmbTEPSNo=" +
      records_.quoted(slip.number) + " ORDER BY TSmbLn");
  for (const SlipItem& item : slip.items) {
    if (rows->Eof() || textIn(*rows, "TSmbTAMTAlias") != item.kind ||
        moneyIn(*rows, "TSmbDebit") + moneyIn(*rows, "TSmbCrebit") != item.amount ||
        !isSame(numberIn(*rows, "TSmbQuantity"), item.quantity)) {
      return false;
    }
    rows->MoveNext();
  }
  return rows->Eof();
}

void SlipStore::rollback() noexcept { rollBack(dataObj_); }

}  // namespace kt7::payroll
