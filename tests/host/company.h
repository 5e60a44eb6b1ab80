#pragma once

#include <gtest/gtest.h>
#include <functional>
#include <string>

#include <kt7/error.h>
#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include "host/data/contract/database.h"
#include "support/engine.h"

namespace kt7 {

/// A small database of its own for each test.
class CompanyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    database_.make();
    run(
        {"CREATE TABLE KT7TBranch (TBraCode VARCHAR(60) PRIMARY KEY, TBraName VARCHAR(60), "
         "TBraRank INTEGER, "
         "TBraOpened DATE)",
         "INSERT INTO KT7TBranch VALUES ('01', 'Bangkok', 3, '2020-05-01')",
         "INSERT INTO KT7TBranch VALUES ('02', NULL, NULL, NULL)",
         "INSERT INTO KT7TBranch VALUES ('x', 'ORDER BY', 7, '2026-01-31')",
         "CREATE TABLE KT7TSetting (TSetKey VARCHAR(60) PRIMARY KEY, TSetNumber DECIMAL(19,4), "
         "TSetText VARCHAR(60))",
         "INSERT INTO KT7TSetting VALUES ('MoneyExpendses', 50.5, NULL)",
         "INSERT INTO KT7TSetting VALUES ('HeadOfficeBranchCode', NULL, '01')",
         "CREATE TABLE KT7TUser (TUsrID INTEGER PRIMARY KEY, TUsrName VARCHAR(60), "
         "TUsrIsAdministrator SMALLINT)",
         "INSERT INTO KT7TUser VALUES (1, 'root', 1)", "INSERT INTO KT7TUser VALUES (2, 'b', 0)",
         "INSERT INTO KT7TUser VALUES (3, 'c', NULL)",
         "CREATE TABLE KT7TUserModule (TUMdTUsrID INTEGER, TUMdTCmGAlias VARCHAR(60), "
         "TUMdIsAdministrator SMALLINT)",
         "INSERT INTO KT7TUserModule VALUES (2, 'HR', 1)",
         "INSERT INTO KT7TUserModule VALUES (3, 'HR', 0)",
         "CREATE TABLE KT7TUserRight (TUsRTUsrID INTEGER, TUsRKey VARCHAR(60))",
         "INSERT INTO KT7TUserRight VALUES (2, 'HRMASTERALLTYPE')"});
  }

  void run(std::initializer_list<const char*> statements) {
    const auto connection = data::createConnection();
    connection->Open(connectionString_);
    const bool together = test::engine().kind != "MYSQL";  // it makes tables in no transaction
    if (together) connection->BeginTrans();
    for (const char* sql : statements) connection->Execute(sql);
    if (together) connection->CommitTrans();
    connection->Close();
  }

  /// What a new connection sees, as text.
  std::string seen(const std::string& sql) const {
    return data::askOne(connectionString_, sql, {}).joinedText();
  }

  static std::int32_t errorOf(const std::function<void()>& act) {
    try {
      act();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  }

  test::TemporaryDatabase database_;
  const std::string& connectionString_ = database_.connectionString();
};

}  // namespace kt7
