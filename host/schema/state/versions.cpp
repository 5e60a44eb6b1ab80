#include "host/schema/state/versions.h"

#include <algorithm>
#include <array>

#include <kt7/error.h>
#include "host/data/contract/database.h"
#include "host/schema/engine/engine_checks.h"
#include "host/schema/engine/transaction.h"
#include "host/schema/state/schema.h"

namespace kt7::schema {
namespace {

/// What a version added to the one before it: a table with its indexes, or one index of a table.
struct Addition {
  int version;
  std::string_view table;
  std::size_t index = 0;
  /// Raises a database error where rows stand in its way.
  void (*check)(ado::Connection& connection) = nullptr;
};

/// Two slips for the same pay would make the index that forbids them fail without a name.
void refuseRepeatedSlips(ado::Connection& connection) {
  const auto recordset = data::createRecordset();
  recordset->Open(
      "SELECT TOP 1 TEpSTEmpCode, TEpsTSaPDate, TEPSTEmTCode, TEPSCheckGroup, MIN(TEPSNo) AS "
      "FirstNo, MAX(TEPSNo) AS LastNo FROM KT7TEmpSlipDoc WHERE TEpSTEmpCode IS NOT NULL AND "
      "TEpsTSaPDate IS NOT NULL AND TEPSTEmTCode IS NOT NULL AND TEPSCheckGroup IS NOT NULL GROUP "
      "BY TEpSTEmpCode, TEpsTSaPDate, TEPSTEmTCode, TEPSCheckGroup HAVING COUNT(*) > 1 ORDER BY "
      "MIN(TEPSNo)",
      connection, ado::kStatic, ado::kReadOnly);
  if (recordset->Eof()) return;
  const auto text = [&](const char* column) { return recordset->get(column).joinedText(); };
  raiseStatementFailed("slips " + text("FirstNo") + " and " + text("LastNo") + " both pay " +
                       text("TEpSTEmpCode") + " as " + text("TEPSTEmTCode") + " on " +
                       recordset->get("TEpsTSaPDate").toDate().isoDateText() + ", check group " +
                       text("TEPSCheckGroup") +
                       "; remove or renumber one of them and upgrade again");
}

constexpr std::array kAdditions{
    Addition{2, "KT7TEmpSlipDoc", 4, refuseRepeatedSlips},
    Addition{2, "KT7TRunLease"},
};

static_assert(std::ranges::max(kAdditions, {}, &Addition::version).version == kSchemaVersion);

int versionOf(const Table& table, std::size_t index, int otherwise) {
  const auto found = std::ranges::find_if(kAdditions, [&](const Addition& addition) {
    return addition.table == table.name && addition.index == index;
  });
  return found == kAdditions.end() ? otherwise : found->version;
}

void add(const Addition& addition, ado::Connection& connection, Engine engine,
         const Catalogue& catalogue) {
  const Table& table = *findTable(addition.table);
  if (addition.index == 0 && !catalogue.holds(table.name)) {
    connection.Execute(fittedToServer(createTableText(table, engine), connection, engine));
  }
  const std::vector<std::string> texts = createIndexTexts(table, engine);
  for (std::size_t i = 1; i <= texts.size(); ++i) {
    if (addition.index != 0 && addition.index != i) continue;
    if (catalogue.holdsIndex(indexName(table, i, engine))) continue;
    if (addition.check != nullptr) addition.check(connection);
    connection.Execute(texts[i - 1]);
  }
}

}  // namespace

int versionOf(const Table& table) { return versionOf(table, 0, 1); }

int versionOf(const Table& table, std::size_t index) {
  return versionOf(table, index, versionOf(table));
}

void upgradeSchema(ado::Connection& connection, Engine engine, int from) {
  // Where an upgrade was broken off, what is there already is passed over.
  const Catalogue catalogue = readCatalogue(connection, engine);
  MakingTransaction transaction(connection, engine);
  for (const std::string& function : createFunctionTexts(engine)) connection.Execute(function);
  for (const Addition& addition : kAdditions) {
    if (addition.version > from) add(addition, connection, engine, catalogue);
  }
  requireByteOrder(connection, engine);
  writeSchemaVersion(connection, kSchemaVersion);
  transaction.commit();
}

}  // namespace kt7::schema
