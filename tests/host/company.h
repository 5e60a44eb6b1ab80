#pragma once

#include <gtest/gtest.h>
#include <functional>
#include <string>

#include <kt7/error.h>
#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include "host/data/contract/database.h"
#include "support/cases.h"
#include "support/engine.h"

namespace kt7 {

/// A small database of its own for each test.
class CompanyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    database_.make();
    run(test::casesOf("host/company.sql")[0]);
  }

  void run(const std::vector<std::string>& statements) {
    const auto connection = data::createConnection();
    connection->Open(connectionString_);
    const bool together = test::engine().kind != "MYSQL";  // it makes tables in no transaction
    if (together) connection->BeginTrans();
    for (const std::string& sql : statements) connection->Execute(sql);
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
