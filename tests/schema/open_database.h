#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/data/contract/database.h"
#include "host/schema/state/schema.h"
#include "support/engine.h"

namespace kt7::schema {

/// The dialect of the engine under test.
inline Engine testedEngine() { return engineOf(test::engine().kind); }

/// An empty database of its own.
class OpenDatabase {
 public:
  OpenDatabase() {
    database_.make();
    connection_->Open(database_.connectionString());
  }

  ado::Connection& connection() { return *connection_; }
  const std::string& connectionString() const { return database_.connectionString(); }
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
  test::TemporaryDatabase database_;
  std::unique_ptr<ado::Connection> connection_ = data::createConnection();
};

}  // namespace kt7::schema
