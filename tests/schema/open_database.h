#pragma once

#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/data/database.h"
#include "host/schema/schema.h"

namespace kt7::schema {

/// An empty embedded database of its own in a folder that goes with it.
class OpenDatabase {
 public:
  OpenDatabase() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kt7schemaXXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    const std::string text = "Driver=SQLite;Database=" + (folder_ / "company.db").string();
    data::createDatabase(text);
    connection_ = data::createConnection();
    connection_->Open(text);
  }
  ~OpenDatabase() {
    connection_->Close();
    std::filesystem::remove_all(folder_);
  }

  ado::Connection& connection() { return *connection_; }
  void run(const std::string& sql) { connection_->Execute(sql); }

  /// The first column of every row as text, null as "null".
  std::vector<std::string> texts(const std::string& field, const std::string& sql) {
    std::vector<std::string> result;
    const auto recordset = data::createRecordset();
    recordset->Open(sql, *connection_, ado::kStatic, ado::kReadOnly);
    for (; !recordset->Eof(); recordset->MoveNext()) {
      const Value value = recordset->get(field);
      result.push_back(value.isNull() ? "null" : value.toText());
    }
    return result;
  }
  /// The column of the first row, as the driver types it.
  Value value(const std::string& field, const std::string& sql) {
    const auto recordset = data::createRecordset();
    recordset->Open(sql, *connection_, ado::kStatic, ado::kReadOnly);
    return recordset->get(field);
  }
  std::string text(const std::string& field, const std::string& sql) {
    const auto all = texts(field, sql);
    return all.empty() ? "no row" : all.front();
  }
  std::string count(const std::string& table) {
    return text("A", "SELECT COUNT(*) AS A FROM " + table);
  }

 private:
  std::filesystem::path folder_;
  std::unique_ptr<ado::Connection> connection_;
};

}  // namespace kt7::schema
