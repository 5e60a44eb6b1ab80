#include <kt7/hr_object.h>
#include "calendar/weekly_pattern.h"
#include "support/sql_text.h"

namespace kt7 {

namespace calendar {

bool marksWeekday(std::string_view pattern, int weekday) {
  for (int entry = 0; entry < weekday; ++entry) {
    const std::size_t separator = pattern.find(';');
    if (separator == std::string_view::npos) return false;
    pattern.remove_prefix(separator + 1);
  }
  const std::string_view mark = pattern.substr(0, pattern.find(';'));
  return mark == "H" || mark == "h";
}

}  // namespace calendar

namespace {

std::string branchCode(const std::string& branch, Collaborators& with, DataObj& dataObj) {
  if (branch != "HEADOFFICE" && !branch.empty()) return branch;
  return with.settings().GetHeadOfficeBranchCode(dataObj);
}

}  // namespace

bool HRObject::ISWorkDay(Date iDate, DataObj& dataObj, const std::string& Branhcode) {
  const std::string branch = branchCode(Branhcode, collaborators_, dataObj);
  const std::string pattern = dataTool().LookupText("", 0, 0, "TBraCode", branch, "TBraHolidayList",
                                                    "KT7TBranch", dataObj.ConnectionString());
  // Intended 24: a weekday that the pattern marks answers true, although the name says work day.
  return calendar::marksWeekday(pattern, iDate.weekday());
}

bool HRObject::ISOfficeHoliday2(Date iDate, DataObj& dataObj, const std::string& Branhcode) {
  const std::string branch = branchCode(Branhcode, collaborators_, dataObj);
  const std::string date = dateLiteral(utility().SqlDateText(iDate));
  const std::string sql = dataTool().PrepareSql(
      "SELECT COUNT(TEHdHolidayDate) as TEHdHolidayDate FROM KT7TEmpHoliday WHERE TEhdTBraCode='" +
          branch + "' AND TEHdHolidayDate=" + date,
      dataObj.DatabaseType());
  return dataTool().QueryNumber("TEHdHolidayDate", sql, dataObj.ConnectionString()) > 0;
}

bool HRObject::ISOfficeHoliday(Date iDate, DataObj& dataObj) {
  return self().ISOfficeHoliday2(iDate, dataObj, "HEADOFFICE");
}

}  // namespace kt7
