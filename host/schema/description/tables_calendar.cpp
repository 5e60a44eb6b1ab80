#include "host/schema/description/table_groups.h"

namespace kt7::schema {

std::vector<Table> calendarTables() {
  return {
      // The same day may be entered more than once for a branch.
      marked("KT7TEmpHoliday", "TEHd",
             {code("TEhdTBraCode"), date("TEHdHolidayDate"), text("TEHdName"), text("TEHdName2")},
             {index("TEhdTBraCode, TEHdHolidayDate")}),
      marked("KT7TEmpLeaveType", "TLvt",
             {code("TLvtCode"), text("TLvtName"), text("TLvtName2"), number("TLvtPaidRate"),
              number("TLvtMaxPaidDay"), number("TLvtMaxDay"), small("TLvtCountHoliday"),
              date("TLvtStartDate")},
             {unique("TLvtCode")}),
      marked("KT7TEmpLeavePeriod", "TLPD",
             {whole("TLPDID"), text("TLPDName"), date("TLPDStartDate"), date("TLPDEndDate"),
              date("TLPDCarryDate"), small("TLPDClosed")},
             {unique("TLPDID")}),
      marked("KT7TEmpLeaveAllow", "TELa",
             {code("TELATEmpCode"), whole("TELaTLPDID"), code("TELaTLvtCode"),
              number("TELaAllowDay"), number("TELaCarryDay"), number("TELaUsedDay")},
             {unique("TELATEmpCode, TELaTLPDID, TELaTLvtCode")}),
      marked("KT7TEmTLeaveAllow", "TETL",
             {code("TETLTEmTCode"), code("TETLTLvtCode"), number("TETLFromYear"),
              number("TETLAllowDay")},
             {unique("TETLTEmTCode, TETLTLvtCode, TETLFromYear")}),
      // A leave document and its rows of employees and days.
      marked("KT7TEmpLeaveDoc", "TEpa",
             {code("TEpaNo"), date("TEpaDate"), small("TEpaApproveStatus"),
              small("TEpaCancelStatus"), text("TEpaNote")},
             {unique("TEpaNo")}),
      marked(
          "KT7TEmpLeaveMB", "TElb",
          {code("TElbTEpaNo"), whole("TElbLn"), code("TELBTEmpCode"), code("TElbTLvtCode"),
           whole("TElbTLPDID"), date("TElbStartDate"), date("TElbEndDate"), number("TElbTotalDay")},
          {unique("TElbTEpaNo, TElbLn"), index("TELBTEmpCode, TElbTLPDID, TElbTLvtCode")}),
  };
}

}  // namespace kt7::schema
