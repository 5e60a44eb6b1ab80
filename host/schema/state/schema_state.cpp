#include <algorithm>
#include <string>

#include <kt7/error.h>
#include "host/data/contract/database.h"
#include "host/schema/state/schema.h"

namespace kt7::schema {
namespace {

bool hasColumn(ado::Fields& fields, const std::string& name) {
  try {
    fields.Item(name);
    return true;
  } catch (const Error&) {
    return false;
  }
}

void appendMissingColumns(ado::Connection& connection, const Table& table,
                          std::vector<std::string>& missing) {
  const auto recordset = data::createRecordset();
  recordset->Open("SELECT * FROM " + table.name + " WHERE 1 = 0", connection, ado::kStatic,
                  ado::kReadOnly);
  for (const Column& column : table.columns) {
    if (!hasColumn(recordset->Fields(), column.name)) {
      missing.push_back(table.name + "." + column.name);
    }
  }
}

/// What a database of that version should hold and does not.
std::vector<std::string> missingParts(ado::Connection& connection, Engine engine,
                                      const Catalogue& catalogue, int version) {
  std::vector<std::string> missing;
  for (const Table& table : tables()) {
    if (versionOf(table) > version) continue;
    if (!catalogue.holds(table.name)) {
      missing.push_back(table.name);
      continue;
    }
    appendMissingColumns(connection, table, missing);
    for (std::size_t i = 1; catalogue.indexesKnown && i <= table.indexes.size(); ++i) {
      const std::string name = indexName(table, i, engine);
      if (versionOf(table, i) <= version && !catalogue.holdsIndex(name)) {
        missing.push_back("index " + name);
      }
    }
  }
  for (const View& view : views()) {
    if (!catalogue.holds(view.name)) missing.push_back(view.name);
  }
  return missing;
}

int keptVersion(ado::Connection& connection, const Catalogue& catalogue) {
  return catalogue.holds("KT7TSchema") ? schemaVersion(connection) : 0;
}

std::string listed(const std::vector<std::string>& names) {
  constexpr std::size_t kMostShown = 8;
  std::string text;
  for (std::size_t i = 0; i < names.size() && i < kMostShown; ++i) {
    text += (i == 0 ? "" : ", ") + names[i];
  }
  if (names.size() > kMostShown) {
    text += " and " + std::to_string(names.size() - kMostShown) + " more";
  }
  return text;
}

/// What to do about a database that lacks something.
std::string adviceFor(const SchemaState& state) {
  if (std::ranges::find(state.missing, "KT7TSchema") != state.missing.end()) {
    return "; where another program keeps it only kt7hr call and kt7hr rpc work on it, else "
           "restore it";
  }
  if (state.version == 0) {
    return "; where its making was broken off run kt7hr init again, where it holds rows restore it";
  }
  return "; restore it, or remove all KT7 tables and views and run kt7hr init";
}

}  // namespace

SchemaState schemaState(ado::Connection& connection, Engine engine) {
  using Kind = SchemaState::Kind;
  const Catalogue catalogue = readCatalogue(connection, engine);
  if (catalogue.relations.empty()) return {};
  SchemaState state{Kind::Partial, keptVersion(connection, catalogue), {}};
  if (state.version == kCopyMark) {
    state.kind = Kind::UnfinishedCopy;
  } else if (state.version > kSchemaVersion) {
    state.kind = Kind::Newer;
  } else {
    // Without a version the making of the tables was broken off.
    const int expected = state.version == 0 ? kSchemaVersion : state.version;
    state.missing = missingParts(connection, engine, catalogue, expected);
    if (state.version == 0) state.missing.emplace_back("the version in KT7TSchema");
    if (state.missing.empty()) {
      state.kind = state.version < kSchemaVersion ? Kind::Older : Kind::Current;
    }
  }
  return state;
}

void requireCurrentSchema(ado::Connection& connection, Engine engine) {
  const SchemaState state = schemaState(connection, engine);
  switch (state.kind) {
    case SchemaState::Kind::Current:
      return;
    case SchemaState::Kind::Absent:
      raiseStatementFailed("the database holds no company; kt7hr init makes one");
    case SchemaState::Kind::Older:
      raiseStatementFailed("the tables are of version " + std::to_string(state.version) +
                           "; run kt7hr init on this database to upgrade them to version " +
                           std::to_string(kSchemaVersion));
    case SchemaState::Kind::Newer:
      raiseStatementFailed("the tables are of version " + std::to_string(state.version) +
                           ", this kt7hr knows them up to " + std::to_string(kSchemaVersion) +
                           "; use a newer one");
    case SchemaState::Kind::UnfinishedCopy:
      raiseStatementFailed(
          "the database holds a copy that was never finished; run the same kt7hr copy again, it "
          "goes on where it was");
    case SchemaState::Kind::Partial:
      raiseStatementFailed("the database holds only a part of a company, missing: " +
                           listed(state.missing) + adviceFor(state));
  }
}

void requireCompany(ado::Connection& connection, SchemaOwner owner) {
  try {
    if (schemaVersion(connection) == kSchemaVersion) return;
  } catch (const Error&) {
    // Most likely there is no such table: the look below tells.
  }
  const Engine engine = engineOf(data::databaseType(connection));
  if (owner == SchemaOwner::Any && !readCatalogue(connection, engine).holds("KT7TSchema")) return;
  requireCurrentSchema(connection, engine);
}

}  // namespace kt7::schema
