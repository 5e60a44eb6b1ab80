#include "host/schema/state/schema.h"

#include <kt7/error.h>
#include "base/text.h"
#include "host/data/contract/database.h"
#include "host/schema/engine/engine_checks.h"
#include "host/schema/engine/transaction.h"

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

/// Drops what was made if an error leaves, on engines that commit every CREATE by itself.
class DropOnFailure {
 public:
  DropOnFailure(ado::Connection& connection, Engine engine)
      : connection_(connection), engine_(engine) {}
  DropOnFailure(const DropOnFailure&) = delete;
  DropOnFailure& operator=(const DropOnFailure&) = delete;
  ~DropOnFailure() {
    if (kept_ || !keepsEveryStep(engine_)) return;
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

}  // namespace

bool removeUnfinished(ado::Connection& connection, Engine engine) {
  const Catalogue catalogue = readCatalogue(connection, engine);
  if (!catalogue.holds("KT7TSchema")) return false;
  for (const Table& table : tables()) {
    if (!catalogue.holds(table.name)) continue;
    const auto row = data::createRecordset();
    row->Open("SELECT TOP 1 * FROM " + table.name, connection, ado::kStatic, ado::kReadOnly);
    if (!row->Eof()) return false;
  }
  dropEverything(connection, engine);
  return true;
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
  DropOnFailure dropOnFailure(connection, engine);
  const std::vector<std::string> texts = creationTexts(connection, engine);
  MakingTransaction transaction(connection, engine);
  for (const std::string& statement : texts) connection.Execute(statement);
  requireByteOrder(connection, engine);
  transaction.writeRows();
  if (content == Content::Sample) loadSampleTR(connection);
  writeSchemaVersion(connection, kSchemaVersion);
  transaction.commit();
  dropOnFailure.keep();
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
