#include "host/schema/engine/engine_checks.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "host/data/contract/database.h"

namespace kt7::schema {
namespace {

constexpr std::string_view kMariadbCollation = "utf8mb4_nopad_bin";
constexpr std::string_view kMysqlCollation = "utf8mb4_0900_bin";

/// The column "Answer" of the first row; "" without a row.
std::string answer(ado::Connection& connection, const std::string& sql) {
  const auto recordset = data::createRecordset();
  recordset->Open(sql, connection, ado::kStatic, ado::kReadOnly);
  return recordset->Eof() ? "" : recordset->get("Answer").joinedText();
}

/// A column of ours whose collation is not of bytes.
const char* foreignCollationText(Engine engine) {
  switch (engine) {
    case Engine::MySql:
      return "SELECT MIN(CONCAT(table_name, '.', column_name, ' (', collation_name, ')')) AS "
             "Answer FROM information_schema.columns WHERE table_schema = DATABASE() AND "
             "LOWER(table_name) LIKE 'kt7t%' AND collation_name IS NOT NULL AND collation_name "
             "NOT IN ('utf8mb4_nopad_bin', 'utf8mb4_0900_bin')";
    case Engine::PostgreSql:
      return "SELECT MIN(table_name || '.' || column_name || ' (' || COALESCE(collation_name, "
             "'the default of the database') || ')') AS Answer FROM information_schema.columns "
             "WHERE table_schema = current_schema() AND table_name LIKE 'kt7t%' AND data_type IN "
             "('character varying', 'character', 'text') AND COALESCE(collation_name, (SELECT "
             "CAST(datcollate AS text) FROM pg_database WHERE datname = current_database())) NOT "
             "IN ('C', 'POSIX', 'ucs_basic')";
    default:
      return "";
  }
}

constexpr const char* kTableWithoutTransactions =
    "SELECT MIN(CONCAT(table_name, ' (', engine, ')')) AS Answer FROM information_schema.tables "
    "WHERE table_schema = DATABASE() AND LOWER(table_name) LIKE 'kt7t%' AND engine <> 'InnoDB'";

bool isRefusedForRights(const DatabaseCause& cause) {
  // Database, table, column, routine, statement.
  constexpr std::array kMysqlDenied{1044, 1142, 1143, 1370, 1227};
  return cause.sqlState == "42501" ||
         std::ranges::find(kMysqlDenied, cause.nativeCode) != kMysqlDenied.end();
}

}  // namespace

void requireUnicode(ado::Connection& connection, Engine engine) {
  if (engine != Engine::PostgreSql) return;
  const std::string encoding =
      answer(connection, "SELECT current_setting('server_encoding') AS Answer");
  if (encoding == "UTF8") return;
  raiseStatementFailed("the database keeps its texts in " + encoding +
                       ", which has no Thai; make it with CREATE DATABASE ... TEMPLATE template0 "
                       "ENCODING 'UTF8'");
}

void requireByteOrder(ado::Connection& connection, Engine engine) {
  const std::string sql = foreignCollationText(engine);
  if (sql.empty()) return;
  if (const std::string column = answer(connection, sql); !column.empty()) {
    raiseStatementFailed("codes would not compare byte for byte in " + column +
                         "; give the column the collation " +
                         (engine == Engine::MySql ? std::string(kMariadbCollation) : "\"C\""));
  }
  if (engine != Engine::MySql) return;
  if (const std::string table = answer(connection, kTableWithoutTransactions); !table.empty()) {
    raiseStatementFailed("a table keeps no transactions: " + table +
                         "; run ALTER TABLE ... ENGINE=InnoDB");
  }
}

bool hasFunctions(ado::Connection& connection, Engine engine) {
  if (engine != Engine::PostgreSql) return true;
  return answer(connection,
                "SELECT COUNT(*) AS Answer FROM pg_proc WHERE proname = 'year' AND "
                "pg_function_is_visible(oid) AND proargtypes[0] IN (1082, 1114)") == "2";
}

std::string fittedToServer(std::string sql, ado::Connection& connection, Engine engine) {
  if (engine != Engine::MySql || sql.find(kMariadbCollation) == std::string::npos) return sql;
  const std::string server = answer(connection, "SELECT VERSION() AS Answer");
  if (server.find("MariaDB") != std::string::npos) return sql;
  return replaceAll(sql, kMariadbCollation, kMysqlCollation);
}

std::string grantsFor(const Error& error, Engine engine) {
  if (!isRefusedForRights(error.cause())) return "";
  if (engine == Engine::PostgreSql) {
    return "an administrator grants what is missing: GRANT CREATE, USAGE ON SCHEMA public TO "
           "this_user, and for tables of another owner SELECT, INSERT, UPDATE, DELETE ON ALL "
           "TABLES "
           "and UPDATE ON ALL SEQUENCES IN SCHEMA public";
  }
  return "an administrator grants what is missing: GRANT CREATE, DROP, ALTER, INDEX, CREATE VIEW, "
         "SELECT, INSERT, UPDATE, DELETE ON this_database.* TO this_user";
}

}  // namespace kt7::schema
