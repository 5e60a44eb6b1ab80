#pragma once

#include <gtest/gtest.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <kt7/error.h>
#include "host/data/contract/database.h"
#include "host/schema/engine/ddl.h"
#include "support/engine.h"

namespace kt7::data::test {

using kt7::test::engine;
using kt7::test::TemporaryDatabase;

/// A database of its own with a table of every kind of column.
class DataTest : public ::testing::Test {
 protected:
  DataTest() {
    database_.make();
    connection_->Open(connectionString());
    const Engine dialect = engineOf(engine().kind);
    for (const std::string& sql : schema::createFunctionTexts(dialect)) connection_->Execute(sql);
    connection_->Execute(schema::createTableText(payTable(), dialect));
  }

  std::filesystem::path file() const { return database_.file(); }
  const std::string& connectionString() const { return database_.connectionString(); }

  static schema::Table payTable() {
    using enum schema::ColumnType;
    return {"KT7TPay",
            {{"PayRowID", RowId},
             {"Code", Text, 200},
             {"Amount", Money},
             {"Flag", Small},
             {"Number", Whole},
             {"Rate", Number},
             {"Day", Date},
             {"Moment", Moment}},
            {}};
  }

  std::unique_ptr<ado::Connection> another() const {
    auto connection = createConnection();
    connection->Open(connectionString());
    return connection;
  }
  std::unique_ptr<ado::Recordset> opened(const std::string& sql, int lockType = ado::kReadOnly) {
    auto rows = createRecordset();
    rows->Open(sql, *connection_, ado::kStatic, lockType);
    return rows;
  }
  Value ask(const std::string& sql, std::vector<std::string> parameters = {}) {
    return askOne(*connection_, sql, parameters);
  }
  /// The column "line" of all rows, joined by ",".
  std::string list(const std::string& sql) {
    std::string joined;
    for (const auto rows = opened(sql); !rows->Eof(); rows->MoveNext()) {
      joined += (joined.empty() ? "" : ",") + rows->get("line").joinedText();
    }
    return joined;
  }
  std::string text(const std::string& sql) { return ask(sql).joinedText(); }

  TemporaryDatabase database_;
  std::unique_ptr<ado::Connection> connection_ = createConnection();
};

inline void expectError(const std::function<void()>& action, std::int32_t number,
                        const std::string& words) {
  try {
    action();
    ADD_FAILURE() << "no error; wanted: " << words;
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::Database);
    EXPECT_EQ(error.number(), number) << error.what();
    EXPECT_NE(std::string(error.what()).find(words), std::string::npos) << error.what();
  }
}

inline void expectStatementError(const std::function<void()>& action, const std::string& words) {
  expectError(action, error_number::kStatementFailed, words);
}

inline void expectConnectionError(const std::function<void()>& action, const std::string& words) {
  expectError(action, error_number::kConnectionFailed, words);
}

}  // namespace kt7::data::test
