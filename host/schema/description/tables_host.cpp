#include "host/schema/description/table_groups.h"

namespace kt7::schema {

std::vector<Table> hostTables() {
  return {
      table("KT7TUserEmpType", "TUET",
            {code("TUETTCmGAlias"), whole("TUETTUsrID"), code("TUETTEmTCode"), text("TUETWelfare"),
             text("TUETSalary")},
            {unique("TUETTCmGAlias, TUETTUsrID, TUETTEmTCode")}),
      table("KT7TUserBranch", "TUsB",
            {code("TUsBTCmGAlias"), whole("TUsBTUsrID"), code("TUsBTBraCode")},
            {unique("TUsBTCmGAlias, TUsBTUsrID, TUsBTBraCode")}),
      table("KT7TUser", "TUsr", {whole("TUsrID"), text("TUsrName"), small("TUsrIsAdministrator")},
            {unique("TUsrID")}),
      table("KT7TUserModule", "TUMd",
            {whole("TUMdTUsrID"), code("TUMdTCmGAlias"), small("TUMdIsAdministrator")},
            {unique("TUMdTUsrID, TUMdTCmGAlias")}),
      table("KT7TUserRight", "TUsRight", {whole("TUsRTUsrID"), code("TUsRKey")},
            {unique("TUsRTUsrID, TUsRKey")}),
      table("KT7TSetting", "TSet",
            {code("TSetKey"), number("TSetNumber"), text("TSetText", kNoteLength)},
            {unique("TSetKey")}),
      // The parts of a month that several workers share: who pays the employees from a code to
      // another. State 0 open, 1 taken, 2 done; a part that is taken is free again after Until. New
      // slips of a part are numbered behind FirstNo.
      table("KT7TRunLease", "TRLe",
            {code("TRLeRun"), code("TRLeFrom"), code("TRLeTo"), whole("TRLeFirstNo"),
             text("TRLeWorker"), small("TRLeState"), moment("TRLeUntil")},
            {unique("TRLeRun, TRLeFrom")}),
  };
}

std::vector<Table> versionTables() {
  return {table("KT7TSchema", "TSch", {whole("TSchVersion")}, {})};
}

}  // namespace kt7::schema
