#include "host/schema/schema.h"

#include "base/error.h"
#include "host/data/database.h"
#include "host/schema/transaction.h"

namespace kt7::schema {
namespace {

/// The tables and views of the database, whoever made them.
const char* catalogueText(Engine engine) {
  switch (engine) {
    case Engine::SQLite:
      return "SELECT name AS ObjectName FROM sqlite_master WHERE type IN ('table', 'view')";
    case Engine::MySQL:
      return "SELECT table_name AS ObjectName FROM information_schema.tables "
             "WHERE table_schema = DATABASE()";
    default:
      return "SELECT table_name AS ObjectName FROM information_schema.tables";
  }
}

/// The first table or view of ours that is there; "" where there is none.
std::string firstOwnObject(ado::Connection& connection, Engine engine) {
  const auto recordset = data::createRecordset();
  recordset->Open(catalogueText(engine), connection, ado::kStatic, ado::kReadOnly);
  for (; !recordset->Eof(); recordset->MoveNext()) {
    std::string name = recordset->get("ObjectName").joinedText();
    if (findTable(name) != nullptr || findView(name) != nullptr) return name;
  }
  return "";
}

}  // namespace

bool hasSchema(ado::Connection& connection, Engine engine) {
  return !firstOwnObject(connection, engine).empty();
}

int schemaVersion(ado::Connection& connection) {
  const auto recordset = data::createRecordset();
  recordset->Open("SELECT TSchVersion FROM KT7TSchema", connection, ado::kStatic, ado::kReadOnly);
  return recordset->Eof() ? 0 : recordset->get("TSchVersion").toInt32();
}

void createSchema(ado::Connection& connection, Engine engine) {
  if (const std::string name = firstOwnObject(connection, engine); !name.empty()) {
    raiseStatementFailed("the database already holds " + name +
                         "; the tables are made in an empty database only");
  }
  Transaction transaction(connection);
  for (const std::string& statement : createSchemaTexts(engine)) connection.Execute(statement);
  connection.Execute("INSERT INTO KT7TSchema (TSchVersion) VALUES (" +
                     std::to_string(kSchemaVersion) + ")");
  transaction.commit();
}

}  // namespace kt7::schema
