#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/error.h"
#include "host/data/database.h"

namespace kt7::data::test {

/// A database in a folder of its own, gone afterwards, with a table of every kind of column.
class DataTest : public ::testing::Test {
 protected:
  DataTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kt7-data-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    createDatabase(connectionString());
    connection_->Open(connectionString());
    connection_->Execute(
        "CREATE TABLE Pay(PayRowID INTEGER PRIMARY KEY, Code TEXT, Amount NUMERIC, Flag SMALLINT, "
        "Number INTEGER, Rate DOUBLE PRECISION, Day DATE, Moment TIMESTAMP)");
  }
  ~DataTest() override { std::filesystem::remove_all(folder_); }

  std::string file() const { return (folder_ / "company.db").string(); }
  std::string connectionString() const { return "Driver=SQLite;Database=" + file(); }

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
  std::string text(const std::string& sql) { return ask(sql).joinedText(); }

  std::filesystem::path folder_;
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
