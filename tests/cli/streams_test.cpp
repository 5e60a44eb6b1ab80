#include <sys/wait.h>

#include "command_fixture.h"

namespace kt7::cli {
namespace {

/// The program itself, started with descriptors that lead nowhere.
class Streams : public testing::Test {
 protected:
  Streams() {
    test::makeSampleCompany(database_);
    setenv("KT7HR_DB", database_.connectionString().c_str(), 1);
  }
  ~Streams() override { unsetenv("KT7HR_DB"); }

  int exitOf(const std::string& words) {
    const int status = std::system(("'" KT7HR_PROGRAM "' " + words).c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  /// The register of a month, from the program as everybody starts it.
  std::string registerOf(const std::string& month) {
    const std::string file = (database_.folder() / "register.csv").string();
    EXPECT_EQ(exitOf("payroll --format csv --month " + month + " >" + file), kDone);
    std::ifstream written(file);
    return {std::istreambuf_iterator<char>(written), {}};
  }

  test::TemporaryDatabase database_;
};

TEST_F(Streams, WhatNobodyCouldReadIsAFailure) {
  const std::string rename = R"(call RenameEmployeeCodeTR '{"FromCode":"E9","ToCode":"E8"}')";
  const std::string asking = "echo '" + request("TrimSFUNDBase", R"({"iBaseAmount":1})") + "' | ";
  for (const std::string words :
       {"", "--help", "--version", "payroll --help", "operations", "init", "init --sample",
        "payroll --month 2026-01", "payroll --month 2026-01 --format csv",
        "payroll --month 2026-01 --format json --jobs 2", "payroll --month 2026-01 --share",
        rename.c_str(), "employee show E0001", "employee rename E0001 E0001X --yes",
        "user add 7 --name Somchai", "user show 7", "setting set STAXMaxRate 17500"}) {
    for (const char* streams : {" >&- 2>/dev/null", " >/dev/full 2>/dev/null", " >&- 2>&-",
                                " <&- >&- 2>&-", " <&- >/dev/full 2>/dev/full"}) {
      EXPECT_EQ(exitOf(words + streams), kFailed) << words << streams;
    }
  }
  EXPECT_EQ(exitOf("rpc <&- 2>/dev/null"), kFailed);
  EXPECT_EQ(exitOf("rpc </ 2>/dev/null"), kFailed);
  EXPECT_EQ(exitOf("rpc </dev/null"), kDone);
  for (const char* streams : {" >&- 2>/dev/null", " >/dev/full 2>/dev/null", " >&- 2>&-"}) {
    EXPECT_EQ(std::system((asking + "'" KT7HR_PROGRAM "' rpc" + streams).c_str()) >> 8, kFailed);
  }
  // Only what had to be said is missed on standard error.
  EXPECT_EQ(exitOf("user show 7 >/dev/null 2>&-"), kDone);
  EXPECT_EQ(exitOf("setting set NoSuchSetting 1 >/dev/null 2>&-"), kFailed);
}

TEST_F(Streams, ARegisterNeverReachesTheDatabase) {
  EXPECT_EQ(exitOf("payroll --month 2026-01 <&- >&- 2>&-"), kFailed);
  // Every slip was paid and stands; paying a second time gives the same.
  const std::string first = registerOf("2026-01");
  EXPECT_EQ(std::count(first.begin(), first.end(), '\n'), 64);
  EXPECT_EQ(registerOf("2026-01"), first);
}

}  // namespace
}  // namespace kt7::cli
