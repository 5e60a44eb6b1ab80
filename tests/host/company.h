#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>

#include "base/error.h"
#include "host/data/database.h"
#include "host/roles/host_data_obj.h"
#include "host/roles/host_platform.h"

namespace kt7 {

/// A small database of its own for each test, in SQLite.
class CompanyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    removeFiles();
    data::createDatabase(connectionString_);
    run(
        {"CREATE TABLE KT7TBranch (TBraCode TEXT PRIMARY KEY, TBraName TEXT, TBraRank INTEGER, "
         "TBraOpened DATE)",
         "INSERT INTO KT7TBranch VALUES ('01', 'Bangkok', 3, '2020-05-01')",
         "INSERT INTO KT7TBranch VALUES ('02', NULL, NULL, NULL)",
         "INSERT INTO KT7TBranch VALUES ('x', 'ORDER BY', 7, '2026-01-31')",
         "CREATE TABLE KT7TSetting (TSetKey TEXT PRIMARY KEY, TSetNumber NUMERIC, TSetText TEXT)",
         "INSERT INTO KT7TSetting VALUES ('MoneyExpendses', 50.5, NULL)",
         "INSERT INTO KT7TSetting VALUES ('HeadOfficeBranchCode', NULL, '01')",
         "CREATE TABLE KT7TUser (TUsrID INTEGER PRIMARY KEY, TUsrName TEXT, "
         "TUsrIsAdministrator SMALLINT)",
         "INSERT INTO KT7TUser VALUES (1, 'root', 1)", "INSERT INTO KT7TUser VALUES (2, 'b', 0)",
         "INSERT INTO KT7TUser VALUES (3, 'c', NULL)",
         "CREATE TABLE KT7TUserModule (TUMdTUsrID INTEGER, TUMdTCmGAlias TEXT, "
         "TUMdIsAdministrator SMALLINT)",
         "INSERT INTO KT7TUserModule VALUES (2, 'HR', 1)",
         "INSERT INTO KT7TUserModule VALUES (3, 'HR', 0)",
         "CREATE TABLE KT7TUserRight (TUsRTUsrID INTEGER, TUsRKey TEXT)",
         "INSERT INTO KT7TUserRight VALUES (2, 'HRMASTERALLTYPE')"});
  }
  void TearDown() override { removeFiles(); }

  void run(std::initializer_list<const char*> statements) {
    const auto connection = data::createConnection();
    connection->Open(connectionString_);
    connection->BeginTrans();
    for (const char* sql : statements) connection->Execute(sql);
    connection->CommitTrans();
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

  void removeFiles() const {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + suffix);
  }

  static std::string freshPath() {
    static int count = 0;
    const std::string name =
        "kt7_host_" + std::to_string(::getpid()) + "_" + std::to_string(++count) + ".db";
    return (std::filesystem::temp_directory_path() / name).string();
  }

  std::string path_ = freshPath();
  std::string connectionString_ = "Driver=SQLite;Database=" + path_;
};

}  // namespace kt7
