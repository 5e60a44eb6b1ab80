#include <kt7/hr_object.h>
#include "periods/amount_columns.h"
#include "schema/amass_columns.h"
#include "support/opened.h"
#include "support/sql_text.h"

namespace kt7 {

namespace {

constexpr int16_t kRowsWritten = 1;
constexpr int16_t kNothingWritten = 0;

/// What finds the balance row of a slip.
struct BalanceKey {
  std::string employee;
  int32_t checkGroup;
  int16_t balanceFlag;
  std::string typeCode;
  Date payDate;
};

struct Posting {
  Platform& platform;
  DataTool& dataTool;
  DataObj& dataObj;
  const BalanceKey& key;
  const std::string& slipNumber;
  int16_t status;
  const std::string& condition;
};

std::string keyCondition(const BalanceKey& key, UtilityObject& utility) {
  return " KT7TEmpAmassType WHERE TEATBalanceFlag=" + std::to_string(key.balanceFlag) +
         " AND TEATTEmpCode='" + key.employee +
         "' AND TEATCheckGroup=" + std::to_string(key.checkGroup) + " AND TEATTEMTCode='" +
         key.typeCode + "' AND TEATPaymentDate=" + dateLiteral(utility.SqlDateText(key.payDate));
}

Currency moneyOf(ado::Recordset& row, const std::string& column) {
  const Value value = row.get(column);
  return value.isNull() ? Currency() : value.toCurrency();
}

std::optional<double> numberOf(ado::Recordset& row, const char* column) {
  const Value value = row.get(column);
  if (value.isNull()) return std::nullopt;
  return value.toDouble();
}

void fillKey(ado::Recordset& balance, ado::Recordset& item, const Posting& posting) {
  const BalanceKey& key = posting.key;
  balance.set("TEATTEmpCode", key.employee);
  balance.set("TEATCheckGroup", key.checkGroup);
  balance.set("TEATTEmTCode", key.typeCode);
  balance.set("TEATPaymentDate", key.payDate);
  balance.set("TEATBalanceFlag", key.balanceFlag);
  balance.set("TEATSalaryPeriod", item.get("TEPSSalaryPeriod"));
  balance.set("TEATMonth", static_cast<int16_t>(key.payDate.month()));
  balance.set("TEATYear", static_cast<int16_t>(key.payDate.year()));
}

void fillOrganisation(ado::Recordset& balance, const Posting& posting) {
  const auto employeeText = [&](const char* column) {
    return posting.dataTool.LookupFieldText("", 0, 0, "TEmpCode", posting.key.employee, column,
                                            "KT7TEmployee", posting.dataObj.Connection());
  };
  balance.set("TEATTBraCode", employeeText("TEmpTBraCode"));
  balance.set("TEATTDivCode", employeeText("TEmpTDivCode"));
  balance.set("TEATDepCode", employeeText("TEmpTDepCode"));
  balance.set("TEATSecCode", employeeText("TEmpTSecCode"));
}

void fillSlip(ado::Recordset& balance, ado::Recordset& item, const Posting& posting) {
  const auto slipDate = [&](const char* column) {
    return posting.dataTool.LookupDate("", 0, 0, "TEPSNo", posting.slipNumber, column,
                                       "KT7TEmpSlipDoc", posting.dataObj.Connection());
  };
  slipDate("TEpsStartDate");  // Intended 6: the slip's span is looked up and not kept.
  slipDate("TEpsEndDate");
  const Value workDays = item.get("TEPSTotalWorkDay");
  balance.set("TEATTotalDay", workDays);
  balance.set("TEATSubDay", workDays);
  balance.set("TEATSubDayHol", item.get("TEPSTotalLeaveHDay"));
  balance.set("TEATSubDayChild", int16_t{0});
  balance.set("TEATNetTotal", item.get("TEPSNetTotal"));
  balance.set("TEATFlag1", posting.status);
}

void postItem(ado::Recordset& item, const Posting& posting) {
  const std::string sql = posting.dataTool.PrepareSql("SELECT * from" + posting.condition,
                                                      posting.dataObj.DatabaseType());
  OpenRecordset balance(posting.platform, sql, posting.dataObj.Connection(), ado::kOptimistic);
  if (balance->Eof()) {
    balance->AddNew();
    fillKey(*balance, item, posting);
    fillOrganisation(*balance, posting);
    fillSlip(*balance, item, posting);
    for (const std::string_view column : schema::kAmassMoneyColumns) {
      balance->set(column, Currency());
    }
  }
  // Intended 7: debit and credit both count, one of them being 0 as a rule.
  const Currency debit = moneyOf(item, "TSmbDebit");
  const Currency credit = moneyOf(item, "TSmbCrebit");
  const auto add = [&](const std::vector<std::string>& columns) {
    for (const std::string& column : columns) {
      balance->set(column, moneyOf(*balance, column) + debit + credit);
    }
  };
  const std::optional<double> checkMoney = numberOf(item, "TSmbCheckMoney");
  add(periods::amountColumns(
      {item.get("TSmbTAMTAlias").joinedText(), checkMoney, numberOf(item, "TSmbCheckFix")}));
  add(periods::totalColumns(checkMoney));
  balance->set("TEATFlag3", posting.platform.now());
  balance->Update();
  balance.close();
}

}  // namespace

int16_t HRObject::SumAmass3TR(const std::string& TEmpCode, int32_t CheckGroup, int16_t BalanceFlag,
                              const std::string& TEPSNo, DataObj& dataObj, int16_t Status) {
  OpenRecordset items(platform_,
                      "SELECT * FROM KT7VEmployeeSlip WHERE TEPSNo='" + TEPSNo +
                          "' AND TEpSTEmpCode='" + TEmpCode +
                          "' AND TEPSCheckGroup=" + std::to_string(CheckGroup),
                      dataObj.Connection());
  const Date payDate = dataTool().LookupDate("", 0, 0, "TEPSNo", TEPSNo, "TEpsTSaPDate",
                                             "KT7TEmpSlipDoc", dataObj.Connection());
  const std::string typeCode = dataTool().LookupFieldText(
      "", 0, 0, "TEmpCode", TEmpCode, "TEmpTEmTCode", "KT7TEmployee", dataObj.Connection());
  const BalanceKey key{TEmpCode, CheckGroup, BalanceFlag, typeCode, payDate};
  int16_t result = kNothingWritten;
  if (!items->Eof()) {
    const std::string condition = keyCondition(key, utility());
    dataObj.ExecuteSql(dataTool().PrepareSql("DELETE FROM" + condition, dataObj.DatabaseType()));
    const Posting posting{platform_, dataTool(), dataObj, key, TEPSNo, Status, condition};
    for (; !items->Eof(); items->MoveNext()) {
      postItem(*items, posting);
      result = kRowsWritten;
    }
  }
  items.close();
  return result;
}

}  // namespace kt7
