#include <exception>

#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "support/opened.h"
#include "support/sql_text.h"

namespace kt7 {

namespace {

std::string listItem(ado::Recordset& leaveType, bool nameOnly) {
  if (nameOnly) return leaveType.get("TLvtName").joinedText();
  const std::string code = leaveType.get("TLvtCode").joinedText();
  return "Leave" + code + ";" + leaveType.get("TLvtName").joinedText();
}

/// Intended 20: a leave type that cannot be read is left out and the list goes on.
void addItem(std::string& list, ado::Recordset& leaveType, bool nameOnly) {
  try {
    const std::string item = listItem(leaveType, nameOnly);
    list += (list.empty() ? "" : ",") + item;
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): see above
  }
}

}  // namespace

std::string HRObject::GetLeaveName(const std::string& ConnectionString, bool NameOnly) {
  std::string list;
  try {
    OwnConnection connection(platform_, ConnectionString);
    OpenRecordset leaveTypes(platform_, "SELECT * FROM KT7TEmpLeaveType Order by tLvtCode",
                             *connection);
    for (; !leaveTypes->Eof(); leaveTypes->MoveNext()) addItem(list, *leaveTypes, NameOnly);
    leaveTypes.close();
    connection.close();
  } catch (const std::exception&) {
    // Intended 21: whatever fails, the answer is what had been gathered so far.
  }
  return list;
}

int16_t HRObject::GetEmployeeLeaveYear(DataObj& dataObj, Date iDate) {
  const std::string startsBy = dateLiteral(utility().SqlDateText(iDate));
  const std::string endsFrom = dateLiteral(utility().SqlDateText(iDate));
  const std::string sql = dataTool().PrepareSql(
      "SELECT TLPDID FROM KT7TEmpLeavePeriod WHERE TLPDStartDate<=" + startsBy +
          " AND TLPDEndDate >=" + endsFrom,
      dataObj.DatabaseType());
  return toInt16(dataTool().QueryDouble("TLPDID", sql, dataObj.ConnectionString()));
}

}  // namespace kt7
