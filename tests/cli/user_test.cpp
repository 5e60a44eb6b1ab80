#include "command_fixture.h"
#include "host/data/contract/database.h"

namespace kt7::cli {
namespace {

/// The sample company with user 7, who has no rights yet, and user 8.
class Users : public Commands {
 protected:
  Users() {
    done({"init", "--sample"});
    done({"user", "add", "7", "--name", "สมชาย"});
    done({"user", "add", "8"});
  }
  Json value(const std::string& operation, const Json& params) {
    return Json::parse(done({"call", operation, params.dump()}))["value"];
  }
  std::string filter(int level, const char* field = "") {
    return value("HRFilterAccessLevel4", {{"UserID", 7},
                                          {"BranchCode", ""},
                                          {"DataconnectionString", database()},
                                          {"AppConnectionString", ""},
                                          {"FieldTypeName", field},
                                          {"CheckAdminLevel", level}});
  }
  bool seesSalary(const char* type) {
    return value("HRFilterAccessSalary", {{"UserID", 7},
                                          {"DataconnectionString", database()},
                                          {"AppConnectionString", ""},
                                          {"EmployeeType", type}});
  }
};

TEST_F(Users, GrantWhatTheFiltersRead) {
  EXPECT_EQ(filter(0, "TEmpTEmTCode"), " ( TEMPTEMTCODE='') AND ( TEmpTBraCode='')");
  for (int times = 0; times < 2; ++times) {
    done({"user", "grant", "7", "--type", "M1", "--type", "W4", "--welfare", "--branch", "BR01",
          "--branch", "BR02"});
    done({"user", "grant", "7", "--type", "M1", "--salary"});
  }
  EXPECT_EQ(asked("SELECT COUNT(*) FROM KT7TUserEmpType"), "2");
  EXPECT_EQ(asked("SELECT COUNT(*) FROM KT7TUserBranch"), "2");
  EXPECT_EQ(filter(0, "TEmpTEmTCode"),
            " ( TEMPTEMTCODE='' OR  TEMPTEMTCODE='M1' OR  TEMPTEMTCODE='W4') AND ( "
            "TEmpTBraCode='' OR  TEmpTBraCode='BR01' OR  TEmpTBraCode='BR02')");
  EXPECT_EQ(filter(1), " ( TEmTCode='' OR  TEmTCode='M1' OR  TEmTCode='W4')");
  EXPECT_EQ(filter(2), " ( TEmTCode='' OR  TEmTCode='M1')");
  EXPECT_TRUE(seesSalary("M1"));
  EXPECT_FALSE(seesSalary("W4"));

  done({"user", "grant", "7", "--right", "HRMASTERALLTYPE", "--right", "HRMASTERALLBRANCH"});
  EXPECT_EQ(filter(0, "TEmpTEmTCode"), "");
  EXPECT_EQ(filter(2), " ( TEmTCode='' OR  TEmTCode='M1')");
}

TEST_F(Users, AddingAgainTakesNothingAway) {
  done({"user", "add", "7", "--module-administrator"});
  EXPECT_TRUE(seesSalary("D2"));
  EXPECT_EQ(filter(2), " ( TEmTCode='')");
  done({"user", "add", "7", "--administrator"});
  done({"user", "add", "7"});
  EXPECT_EQ(filter(2), "");
  EXPECT_EQ(asked("SELECT COUNT(*) FROM KT7TUser"), "2");
  EXPECT_EQ(asked("SELECT TUsrName FROM KT7TUser WHERE TUsrID=7"), "สมชาย");
}

TEST_F(Users, RevokeTakesWhatIsNamedOrNothing) {
  done({"user", "grant", "7", "--type", "M1", "--type", "W4", "--welfare", "--salary", "--branch",
        "BR01", "--right", "HRMASTERALLBRANCH"});
  done({"user", "grant", "8", "--type", "M1", "--salary"});
  done({"user", "add", "7", "--administrator", "--module-administrator"});
  for (const std::vector<std::string>& notHeld :
       {std::vector<std::string>{"--type", "M1", "--type", "H1"},
        {"--branch", "BR01", "--branch", "BR02"},
        {"--type", "M1", "--right", "HRMASTERALLTYPE"}}) {
    std::vector<std::string> words{"user", "revoke", "7"};
    words.insert(words.end(), notHeld.begin(), notHeld.end());
    const Outcome refused = ask(words);
    EXPECT_EQ(refused.exitCode, kFailed);
    EXPECT_TRUE(refused.err.ends_with("nothing was taken away\n")) << refused.err;
  }
  EXPECT_EQ(ask({"user", "revoke", "7"}).exitCode, kWrongUse);
  EXPECT_EQ(ask({"user", "revoke", "7", "--type", "M'1"}).exitCode, kWrongUse);

  done({"user", "revoke", "7", "--administrator", "--module-administrator"});
  EXPECT_EQ(filter(2), " ( TEmTCode='' OR  TEmTCode='M1' OR  TEmTCode='W4')");
  done({"user", "revoke", "7", "--type", "M1", "--salary"});
  EXPECT_FALSE(seesSalary("M1"));
  EXPECT_EQ(filter(1), " ( TEmTCode='' OR  TEmTCode='M1' OR  TEmTCode='W4')");
  EXPECT_EQ(ask({"user", "revoke", "7", "--type", "M1", "--salary"}).exitCode, kFailed);
  done({"user", "revoke", "7", "--type", "W4", "--branch", "BR01", "--right", "HRMASTERALLBRANCH"});
  EXPECT_EQ(filter(0, "TEmpTEmTCode"),
            " ( TEMPTEMTCODE='' OR  TEMPTEMTCODE='M1') AND ( TEmpTBraCode='')");
  EXPECT_EQ(asked("SELECT COUNT(*) FROM KT7TUserEmpType WHERE TUETTUsrID=8 AND TUETSalary<>''"),
            "1");
}

TEST_F(Users, ShowSaysInWordsWhatAUserMaySee) {
  done({"user", "grant", "7", "--type", "M1", "--type", "H1", "--welfare", "--branch", "BR01"});
  done({"user", "grant", "7", "--type", "M1", "--salary"});
  const std::string employees = asked(
      "SELECT COUNT(*) FROM KT7TEmployee WHERE TEmpTEmTCode IN ('M1','H1') AND "
      "TEmpTBraCode='BR01'");
  const auto named = [&](const std::string& type) {
    return type + " (" +
           asked("SELECT TEmTName FROM KT7TEmployeeType WHERE TEmTCode='" + type + "'") + ")";
  };
  const std::string m1 = named("M1"), h1 = named("H1");
  EXPECT_EQ(done({"user", "show", "7"}), "User 7 (สมชาย)\nEmployees of the types: " + h1 + ", " +
                                             m1 + "\nIn the branches: BR01 (สำนักงานใหญ่)\nThat is " +
                                             employees +
                                             " of 40 employees.\nWelfare of the types: " + h1 +
                                             ", " + m1 + "\nSalaries of the types: " + m1 + "\n");

  done({"user", "add", "7", "--module-administrator"});
  EXPECT_NE(done({"user", "show", "7"}).find("\nSalaries in lists, of the types: " + m1 + "\n"),
            std::string::npos);
  done({"user", "grant", "8", "--right", "HRMASTERALLTYPE", "--right", "HRMASTERALLBRANCH"});
  const std::string all = done({"user", "show", "8"});
  EXPECT_TRUE(says(all, "types: all, by the right to every type\n")) << all;
  EXPECT_TRUE(says(all, "branches: all, by the right to every branch\n")) << all;
  EXPECT_TRUE(says(all, "That is 40 of 40")) << all;
  EXPECT_TRUE(says(all, "Salaries of the types: none")) << all;
  done({"user", "add", "8", "--administrator"});
  EXPECT_NE(done({"user", "show", "8"}).find("administrator without restrictions"),
            std::string::npos);
}

TEST_F(Users, ShowNamesTokensThatDoNotHold) {
  done({"user", "grant", "8", "--type", "M1", "--salary", "--welfare"});
  done({"user", "grant", "7", "--type", "M1", "--type", "W4", "--type", "D2"});
  const std::string copied =
      asked("SELECT TUETSalary FROM KT7TUserEmpType WHERE TUETTUsrID=8 AND TUETTEmTCode='M1'");
  execute("UPDATE KT7TUserEmpType SET TUETSalary='" + copied +
          "' WHERE TUETTUsrID=7 AND TUETTEmTCode='M1'");
  execute("UPDATE KT7TUserEmpType SET TUETWelfare='" + copied +
          "x' WHERE TUETTUsrID=7 AND TUETTEmTCode='W4'");
  const std::string shown = done({"user", "show", "7"});
  EXPECT_TRUE(shown.ends_with(
      "Salaries of the types: none\n"
      "Does not hold: the right to salaries of type M1; its token was made for user 8 and type "
      "M1\n"
      "Does not hold: the right to welfare of type W4; its token fits no user and type known "
      "here\n"))
      << shown;

  done({"user", "grant", "7", "--type", "D2", "--salary"});
  execute(
      "UPDATE KT7TUserEmpType SET TUETSalary=(SELECT TUETSalary FROM KT7TUserEmpType WHERE "
      "TUETTUsrID=7 AND TUETTEmTCode='D2') WHERE TUETTUsrID=7 AND TUETTEmTCode='M1'");
  EXPECT_NE(done({"user", "show", "7"}).find("was made for this user and type D2"),
            std::string::npos);
  done({"user", "grant", "7", "--type", "M1", "--salary"});
  EXPECT_TRUE(seesSalary("M1"));
}

TEST_F(Users, RefuseWhatCannotBeGranted) {
  expectRefused({
      {{"user", "show", "9"}, kFailed, "kt7hr user add 9"},
      {{"user", "grant", "9", "--type", "M1"}, kFailed, "no user 9"},
      {{"user", "grant", "7", "--branch", "BR01", "--type", "M9"},
       kFailed,
       "no employee type 'M9'"},
      {{"user", "grant", "7", "--type", "M1", "--branch", "br01"}, kFailed, "no branch 'br01'"},
      {{"user", "grant", "7", "--type", "M'1"}, kWrongUse, "quote"},
      {{"user", "grant", "7", "--branch", "B\"R"}, kWrongUse, "quote"},
      {{"user", "grant", "7", "--right", "B\\"}, kWrongUse, "backslash"},
      {{"user", "grant", "7", "--type", ""}, kWrongUse, "empty"},
      {{"user", "grant", "7", "--type", " M1"}, kWrongUse, "blanks"},
      {{"user", "grant", "7", "--type", std::string(61, 'x')}, kWrongUse, "60"},
      {{"user", "grant", "7"}, kWrongUse, "--type"},
      {{"user", "grant", "7", "--branch", "BR01", "--salary"}, kWrongUse, "--type"},
      {{"user", "add", "0"}, kWrongUse, "range"},
      {{"user", "add", "2147483648"}, kWrongUse, "range"},
  });
  for (const char* table : {"KT7TUserEmpType", "KT7TUserBranch", "KT7TUserRight"}) {
    EXPECT_EQ(asked(std::string("SELECT COUNT(*) FROM ") + table), "0") << table;
  }
  const Outcome misspelt = ask({"user", "grant", "7", "--right", "HRMASTERALTYPE"});
  EXPECT_EQ(misspelt.exitCode, kDone);
  EXPECT_TRUE(says(misspelt.err, "did you mean 'HRMASTERALLTYPE'?"));
}

}  // namespace
}  // namespace kt7::cli
