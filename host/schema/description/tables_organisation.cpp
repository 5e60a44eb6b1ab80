#include "host/schema/description/table_groups.h"

namespace kt7::schema {
namespace {

constexpr int kPositionCodeLength = 30;

}  // namespace

std::vector<Table> organisationTables() {
  return {
      marked("KT7TBranch", "TBra",
             {code("TBraCode"), text("TBraName"), code("TBraDoccode"), code("TBraTBrTAlias"),
              code("TBraTCmpCode"), code("TBraTCouCode"), text("TBraHolidayList"),
              text("TBraProvince"), text("TBraTaxNo", 20), money("TBraMinWage")},
             {unique("TBraCode")}),
      marked("KT7TDivision", "TDiv",
             {code("TDivCode"), text("TDivName"), text("TDivName2"), code("TDivDocCode"),
              code("TDivTBraCode")},
             {unique("TDivCode")}),
      marked("KT7TDepartment", "TDep",
             {code("TDEPCode"), text("TDepName"), text("TDEPName2"), code("TDEPDocCode"),
              code("TDEPTDivCode")},
             {unique("TDEPCode")}),
      marked("KT7TSection", "TSec",
             {code("TSecCode"), text("TSecName"), text("TSecName2"), code("TSecDocCode"),
              code("TSecTDepCode"), small("TSecIsProduction"), code("TCBBTBraCode"),
              code("TCBBTDivCode"), code("TCBBTDepCode")},
             {unique("TSecCode")}),
      marked("KT7TPosition", "TPST", {text("TPSTCode", kPositionCodeLength), text("TPstName")},
             {unique("TPSTCode")}),
      marked("KT7TEmpWorkPeriod", "TWPD", {code("TWPDCode"), text("TWPDName")},
             {unique("TWPDCode")}),
      marked("KT7TEmpWorkTime", "TWPT",
             {code("TWPTTWPDCode"), whole("TWPTWeekDay"), small("TWPTPayType"),
              text("TWPTStartTime", 8), text("TWPTEndTime", 8)},
             {unique("TWPTTWPDCode, TWPTWeekDay")}),
  };
}

}  // namespace kt7::schema
