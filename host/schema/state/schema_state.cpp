#include <algorithm>
#include <span>
#include <string>

#include <kt7/error.h>
#include "base/text.h"
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
  const std::size_t shown = std::min(names.size(), kMostShown);
  std::string text = joined(std::span(names).first(shown), ", ");
  if (names.size() > kMostShown) {
    text += " and " + std::to_string(names.size() - kMostShown) + " more";
  }
  return text;
}

std::string findingOf(const SchemaState& state) {
  switch (state.kind) {
    case SchemaState::Kind::Absent:
      return "the database holds no company";
    case SchemaState::Kind::UnfinishedCopy:
      return "the database holds a copy that was never finished";
    case SchemaState::Kind::Partial:
      return "the database holds only a part of a company, missing: " + listed(state.missing);
    default:
      return "the tables are of version " + std::to_string(state.version);
  }
}

std::string remedyFor(const SchemaState& state) {
  const std::string own = std::to_string(kSchemaVersion);
  switch (state.kind) {
    case SchemaState::Kind::Older:
      return "; upgrade them to version " + own;
    case SchemaState::Kind::Newer:
      return ", this release knows them up to " + own + "; use a newer one";
    case SchemaState::Kind::UnfinishedCopy:
      return "; copy once more, it goes on where it was";
    case SchemaState::Kind::Partial:
      return "; restore it";
    default:
      return "; make one first";
  }
}

}  // namespace

UnfitDatabase::UnfitDatabase(SchemaState state)
    : Error(ErrorKind::Database, error_number::kStatementFailed,
            findingOf(state) + remedyFor(state)),
      state_(std::move(state)),
      finding_(findingOf(state_)) {}

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
  if (state.kind != SchemaState::Kind::Current) throw UnfitDatabase(state);
}

void requireCompany(ado::Connection& connection, SchemaOwner owner) {
  try {
    if (schemaVersion(connection) == kSchemaVersion) return;
  } catch (const Error&) {
    // Most likely there is no such table: the look below tells.
  }
  const Engine engine = data::engineOn(connection);
  if (owner == SchemaOwner::Any && !readCatalogue(connection, engine).holds("KT7TSchema")) return;
  requireCurrentSchema(connection, engine);
}

}  // namespace kt7::schema
