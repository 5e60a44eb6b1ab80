#include "host/schema/engine/catalogue.h"

#include "base/text.h"
#include "host/data/contract/database.h"
#include "host/schema/description/table.h"

namespace kt7::schema {
namespace {

const char* relationsText(Engine engine) {
  switch (engine) {
    case Engine::Sqlite:
      return "SELECT name AS ObjectName FROM sqlite_master WHERE type IN ('table', 'view')";
    case Engine::MySql:
      return "SELECT table_name AS ObjectName FROM information_schema.tables "
             "WHERE table_schema = DATABASE()";
    case Engine::PostgreSql:
      return "SELECT table_name AS ObjectName FROM information_schema.tables "
             "WHERE table_schema = current_schema()";
    default:
      return "SELECT table_name AS ObjectName FROM information_schema.tables";
  }
}

/// "" where the engine has no common way to tell.
const char* indexesText(Engine engine) {
  switch (engine) {
    case Engine::Sqlite:
      return "SELECT name AS ObjectName FROM sqlite_master WHERE type = 'index'";
    case Engine::MySql:
      return "SELECT DISTINCT index_name AS ObjectName FROM information_schema.statistics "
             "WHERE table_schema = DATABASE()";
    case Engine::PostgreSql:
      return "SELECT indexname AS ObjectName FROM pg_indexes WHERE schemaname = current_schema()";
    default:
      return "";
  }
}

std::set<std::string> namesOf(ado::Connection& connection, const std::string& sql) {
  std::set<std::string> names;
  const auto recordset = data::createRecordset();
  recordset->Open(sql, connection, ado::kStatic, ado::kReadOnly);
  for (; !recordset->Eof(); recordset->MoveNext()) {
    names.insert(lowerCase(recordset->get("ObjectName").joinedText()));
  }
  return names;
}

}  // namespace

bool Catalogue::holds(std::string_view table) const { return relations.contains(lowerCase(table)); }

bool Catalogue::holdsIndex(std::string_view name) const {
  return indexes.contains(lowerCase(name));
}

Catalogue readCatalogue(ado::Connection& connection, Engine engine) {
  Catalogue catalogue;
  for (const std::string& name : namesOf(connection, relationsText(engine))) {
    if (findTable(name) != nullptr || findView(name) != nullptr) catalogue.relations.insert(name);
  }
  const std::string indexes = indexesText(engine);
  catalogue.indexesKnown = !indexes.empty();
  if (catalogue.indexesKnown) catalogue.indexes = namesOf(connection, indexes);
  return catalogue;
}

}  // namespace kt7::schema
