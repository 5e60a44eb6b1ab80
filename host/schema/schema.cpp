#include "host/schema/schema.h"

#include "base/error.h"
#include "base/text.h"
#include "host/data/database.h"
#include "host/schema/engine_checks.h"
#include "host/schema/transaction.h"

namespace kt7::schema {
namespace {

/// Every statement that makes the schema, fitted to the server.
std::vector<std::string> creationTexts(ado::Connection& connection, Engine engine) {
  std::vector<std::string> texts = createSchemaTexts(engine);
  for (std::string& text : texts) text = fittedToServer(std::move(text), connection, engine);
  return texts;
}

void dropEverything(ado::Connection& connection, Engine engine) {
  for (const View& view : views()) {
    connection.Execute("DROP VIEW IF EXISTS " + storedName(view.name, engine));
  }
  for (const Table& table : tables()) {
    connection.Execute("DROP TABLE IF EXISTS " + storedName(table.name, engine));
  }
}

/// Where every statement that makes something commits, what was made is taken away on an error.
class TakenBack {
 public:
  TakenBack(ado::Connection& connection, Engine engine)
      : connection_(connection), engine_(engine) {}
  TakenBack(const TakenBack&) = delete;
  TakenBack& operator=(const TakenBack&) = delete;
  ~TakenBack() {
    if (kept_ || engine_ != Engine::MySQL) return;
    try {
      dropEverything(connection_, engine_);
    } catch (const Error&) {
      // The error that brought us here is the one to tell.
    }
  }
  void keep() { kept_ = true; }

 private:
  ado::Connection& connection_;
  Engine engine_;
  bool kept_ = false;
};

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
                           "; kt7hr init upgrades them to " + std::to_string(kSchemaVersion));
    case SchemaState::Kind::Newer:
      raiseStatementFailed("the tables are of version " + std::to_string(state.version) +
                           ", this kt7hr knows them up to " + std::to_string(kSchemaVersion) +
                           "; use a newer one");
    case SchemaState::Kind::UnfinishedCopy:
      raiseStatementFailed(
          "the database holds a copy that was never finished; run the same kt7hr copy again");
    case SchemaState::Kind::Partial:
      raiseStatementFailed(
          "the database holds only a part of a company, missing: " + listed(state.missing) +
          "; restore it, or remove all KT7 tables and views and run kt7hr init");
  }
}

bool hasSchema(ado::Connection& connection, Engine engine) {
  return !readCatalogue(connection, engine).relations.empty();
}

int schemaVersion(ado::Connection& connection) {
  const auto recordset = data::createRecordset();
  recordset->Open("SELECT TSchVersion FROM KT7TSchema", connection, ado::kStatic, ado::kReadOnly);
  return recordset->Eof() ? 0 : recordset->get("TSchVersion").toInt32();
}

void writeSchemaVersion(ado::Connection& connection, int version) {
  const std::string number = std::to_string(version);
  connection.Execute(schemaVersion(connection) == 0
                         ? "INSERT INTO KT7TSchema (TSchVersion) VALUES (" + number + ")"
                         : "UPDATE KT7TSchema SET TSchVersion=" + number);
}

void createSchema(ado::Connection& connection, Engine engine, Content content) {
  const Catalogue catalogue = readCatalogue(connection, engine);
  if (!catalogue.relations.empty()) {
    raiseStatementFailed("the database already holds " + *catalogue.relations.begin() +
                         "; the tables are made in an empty database only");
  }
  requireUnicode(connection, engine);
  TakenBack takenBack(connection, engine);
  const std::vector<std::string> texts = creationTexts(connection, engine);
  Transaction transaction(connection);
  for (const std::string& statement : texts) connection.Execute(statement);
  requireByteOrder(connection, engine);
  // The engine that commits with every statement has left its transaction by now.
  if (engine == Engine::MySQL) transaction.beginAgain();
  if (content == Content::Sample) loadSampleTR(connection);
  writeSchemaVersion(connection, kSchemaVersion);
  transaction.commit();
  takenBack.keep();
}

void completeSchema(ado::Connection& connection, Engine engine) {
  const Catalogue catalogue = readCatalogue(connection, engine);
  for (const std::string& text : createFunctionTexts(engine)) connection.Execute(text);
  const auto make = [&](const std::string& text) {
    connection.Execute(fittedToServer(text, connection, engine));
  };
  for (const Table& table : tables()) {
    if (!catalogue.holds(table.name)) make(createTableText(table, engine));
    const std::vector<std::string> texts = createIndexTexts(table, engine);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (!catalogue.holdsIndex(indexName(table, i + 1, engine))) make(texts[i]);
    }
  }
  for (const View& view : views()) {
    if (!catalogue.holds(view.name)) make(createViewText(view, engine));
  }
}

}  // namespace kt7::schema
