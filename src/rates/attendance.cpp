#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "support/opened.h"
#include "support/sql_text.h"

namespace kt7 {

namespace {

constexpr int16_t kWritten = 1;

std::string typeCodeOf(const std::string& employee, DataTool& dataTool, DataObj& dataObj) {
  return dataTool.LookupFieldText("", 0, 0, "TEmpCode", employee, "TEmpTEmTCode", "KT7TEmployee",
                                  dataObj.Connection());
}

std::string verdictsOf(const std::string& typeCode, const std::string& employee) {
  return " FROM KT7TEmpActiveAmass WHERE TEAATSAPTEmTCode='" + typeCode + "' AND TEAATEmpCode='" +
         employee + "' AND TEAATSaPDate";
}

bool isInactive(ado::Recordset& verdict) {
  const Value type = verdict.get("TEAAType");
  return !type.isNull() && type.toDouble() == 0;
}

}  // namespace

int16_t HRObject::GetActiveAmassTR(const std::string& EmployeeCode, Date PeriodDate,
                                   const std::string& PeriodCondition, DataObj& dataObj) {
  const std::string typeCode = typeCodeOf(EmployeeCode, dataTool(), dataObj);
  std::string dateText = utility().SqlDateText(PeriodDate);
  if (dateText.empty()) dateText = utility().SqlDateText(utility().FallbackDate());
  const std::string sql =
      dataTool().PrepareSql("SELECT *" + verdictsOf(typeCode, EmployeeCode) + PeriodCondition +
                                dateLiteral(dateText) + " ORDER BY TEAATSaPDate DESC",
                            dataObj.DatabaseType());
  OpenRecordset verdicts(platform_, sql, dataObj.Connection());
  int16_t run = 0;
  bool broken = false;
  for (; !verdicts->Eof() && !broken; verdicts->MoveNext()) {
    broken = isInactive(*verdicts);
    if (!broken) run = add16(run, 1);
  }
  verdicts.close();
  if (broken) return run;
  const double carriedIn =
      dataTool().LookupNumber("", 0, 0, "TEm2TEmpCode", EmployeeCode, "TEm2LastBonusAmass",
                              "KT7TEmployee2", dataObj.Connection());
  return toInt16(run + carriedIn);
}

double HRObject::GetActiveRateTR(const std::string& EmployeeCode, int16_t TotalAmass,
                                 int16_t isActiveType, DataObj& dataObj) {
  const std::string typeCode = typeCodeOf(EmployeeCode, dataTool(), dataObj);
  const std::string sql = dataTool().PrepareSql(
      "SELECT * FROM KT7TEmpTipRate WHERE TETRTEmTCode='" + typeCode +
          "' AND TETRFromBase<=" + std::to_string(TotalAmass) + " ORDER BY TETRFromBase DESC",
      dataObj.DatabaseType());
  OpenRecordset rates(platform_, sql, dataObj.Connection());
  double rate = 0;
  if (!rates->Eof()) {
    rate = rates->get(isActiveType == 1 ? "TETRActiveRate" : "TETRTipRate").toDouble();
  }
  rates.close();
  return rate;
}

int16_t HRObject::UpdateEmpActiveAmassTR(int16_t Status, int16_t IsActive,
                                         const std::string& EmployeeCode, Date PeriodDate,
                                         DataObj& dataObj) {
  const std::string typeCode = typeCodeOf(EmployeeCode, dataTool(), dataObj);
  const std::string dateText = utility().SqlDateText(PeriodDate);
  const std::string ofPeriod = verdictsOf(typeCode, EmployeeCode) + "=" + dateLiteral(dateText);
  int16_t run = 0;
  if (Status != 0) {
    const std::string sql = dataTool().PrepareSql("SELECT *" + ofPeriod, dataObj.DatabaseType());
    OpenRecordset verdict(platform_, sql, dataObj.Connection(), ado::kOptimistic);
    if (verdict->Eof()) verdict->AddNew();
    verdict->set("TEAATSAPTEmTCode", typeCode);
    verdict->set("TEAATSaPDate", PeriodDate);
    verdict->set("TEAASalaryPeriod", typeCode + "-" + dateText);
    verdict->set("TEAATEmpCode", EmployeeCode);
    verdict->set("TEAAType", IsActive);
    verdict->set("TEAAFlag1", kWritten);
    verdict->set("TEAAFlag3", platform_.now());
    verdict->Update();
    verdict.close();
    if (IsActive != 0) run = self().GetActiveAmassTR(EmployeeCode, PeriodDate, "<=", dataObj);
  } else {
    dataObj.ExecuteSql(dataTool().PrepareSql("DELETE" + ofPeriod, dataObj.DatabaseType()));
    run = self().GetActiveAmassTR(EmployeeCode, PeriodDate, "<", dataObj);
  }
  dataObj.ExecuteSql("UPDATE KT7TEmployee2 Set TEm2BonusAmass=" + std::to_string(run) +
                     " WHERE TEm2TEmpCode='" + EmployeeCode + "'");
  return 0;
}

}  // namespace kt7
