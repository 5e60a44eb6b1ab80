#include <gtest/gtest.h>

#include <kt7/roles/utility_object.h>
#include "base/text.h"
#include "support/company.h"
#include "support/permission_token.h"

namespace kt7 {
namespace {

TEST(SalaryFilter, LetsAdministratorsAndHoldersOfATokenOfTheirOwnThrough) {
  test::Company company;
  const auto utility = company.platform().createUtilityObject();
  const std::string token = permissionToken(3, "M", *utility);
  for (const char* row :
       {"KT7TUser (TUsrID, TUsrIsAdministrator) VALUES (1, 1), (2, 0)",
        "KT7TUserModule (TUMdTUsrID, TUMdTCmGAlias, TUMdIsAdministrator) VALUES (2, 'HR', 1), "
        "(4, 'GL', 1)",
        "KT7TUserEmpType (TUETTCmGAlias, TUETTUsrID, TUETTEmTCode, TUETSalary) VALUES ('HR', 3, "
        "'A', ''), ('HR', 3, 'M', '{}'), ('HR', 3, 'W', '{}'), ('HR', 4, 'M', '{}')"}) {
    company.run("INSERT INTO " + replaceAll(row, "{}", token));
  }
  const std::string& where = company.connectionString();
  for (int user = 1; user <= 5; ++user) {
    for (const char* type : {"", "M", "W"}) {
      const bool sees = user <= 2 || (user == 3 && *type != 'W');
      EXPECT_EQ(company.hr().HRFilterAccessSalary(user, where, "", type), sees) << user << type;
    }
  }
}

TEST(SelectSection, IsNarrowedByWhatIsGiven) {
  PickerRequest asked;
  host::HostPlatform platform;
  platform.setPicker([&](const PickerRequest& request, const std::string&, bool several) {
    asked = request;
    return several ? "" : "S1";
  });
  host::HostDataObj company("Driver=SQLite;Database=not opened");
  const struct {
    std::string branch, division, department;
    bool production;
    std::string where;
  } cases[] = {{"", "", "", false, ""},
               {"B", "", "", false, " AND TCBBTBraCode='B'"},
               {"", "V", "", false, " AND TCBBTDivCode='V'"},
               {"", "", "P", false, " AND TCBBTDepCode='P'"},
               {"B", "V", "P", true,
                " AND TCBBTBraCode='B' AND TCBBTDivCode='V' AND TCBBTDepCode='P' AND "
                "TSecIsProduction=1"}};
  for (auto [branch, division, department, production, where] : cases) {
    EXPECT_EQ(HRObject(platform).SelectSection(company, branch, division, department, production),
              "S1");
    EXPECT_EQ(asked.source, "KT7TSection Where TSecCode<>'' " + where + " ORDER BY TSecCode");
  }
  EXPECT_EQ(asked.title, "เลือกหน่วยงาน จากแผนก []");
  EXPECT_EQ(asked.key + " of " + asked.columns, "TSecCode of TSecCode,TSecName,TSecTDepCode");
}

}  // namespace
}  // namespace kt7
