#include <kt7/hr_object.h>
#include "support/opened.h"
#include "support/sql_text.h"

namespace kt7 {

namespace {

constexpr int16_t kYes = 1;
constexpr int16_t kNo = 0;

std::string ofTypeAndYear(const std::string& typeCode, Date payDate) {
  return " FROM KT7TEmpSlipPeriod WHERE TSAPTEmTCode='" + typeCode + "' AND year(TSAPDate)='" +
         std::to_string(payDate.year()) + "'";
}

}  // namespace

int16_t HRObject::IsFirstPeriodOfMonth(const std::string& TSAPTEmTCode, Date TSAPDate,
                                       DataObj& dataObj) {
  dataObj.OpenConnection();
  const int16_t answer = self().IsFirstPeriodOfMonthTR(TSAPTEmTCode, TSAPDate, dataObj);
  dataObj.CloseConnection();
  return answer;
}

int16_t HRObject::IsFirstPeriodOfMonthTR(const std::string& TSAPTEmTCode, Date TSAPDate,
                                         DataObj& dataObj) {
  // Intended 5: neither month nor order; whichever row of the year comes first decides.
  const std::string sql = dataTool().PrepareSql(
      "SELECT TSaPPeriodNo" + ofTypeAndYear(TSAPTEmTCode, TSAPDate), dataObj.DatabaseType());
  OpenRecordset periods(platform_, sql, dataObj.Connection());
  int16_t answer = kYes;
  if (!periods->Eof()) {
    const std::string text = periods->get("TSaPPeriodNo").joinedText();
    const int16_t number = utility().TextToInteger(text, true);
    answer = number <= 1 ? kYes : kNo;
  }
  periods.close();
  return answer;
}

int16_t HRObject::IsFirstPeriodOfYear(const std::string& TSAPTEmTCode, Date TSAPDate,
                                      DataObj& dataObj) {
  dataObj.OpenConnection();
  const int16_t answer = self().IsFirstPeriodOfYearTR(TSAPTEmTCode, TSAPDate, dataObj);
  dataObj.CloseConnection();
  return answer;
}

int16_t HRObject::IsFirstPeriodOfYearTR(const std::string& TSAPTEmTCode, Date TSAPDate,
                                        DataObj& dataObj) {
  const std::string date = dateLiteral(utility().SqlDateText(TSAPDate));
  const std::string sql = dataTool().PrepareSql(
      "SELECT TSAPDate" + ofTypeAndYear(TSAPTEmTCode, TSAPDate) + " AND TSAPDate<" + date,
      dataObj.DatabaseType());
  OpenRecordset earlier(platform_, sql, dataObj.Connection());
  const int16_t answer = earlier->Eof() ? kYes : kNo;
  earlier.close();
  return answer;
}

}  // namespace kt7
