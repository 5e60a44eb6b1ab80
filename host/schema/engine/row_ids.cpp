#include "host/schema/engine/row_ids.h"

#include "base/text.h"
#include "host/data/contract/database.h"
#include "host/schema/engine/ddl.h"

namespace kt7::schema {

void advanceRowIds(ado::Connection& connection, const Table& table) {
  if (data::engineOn(connection) != Engine::PostgreSql) return;
  const std::string& key = table.columns.front().name;
  const std::string sequence =
      "pg_get_serial_sequence('" + lowerCase(table.name) + "', '" + lowerCase(key) + "')";
  // Taking one number first keeps the sequence from going back.
  connection.Execute("SELECT setval(" + sequence + ", GREATEST((SELECT MAX(" + key + ") FROM " +
                     table.name + "), nextval(" + sequence + ")))");
}

}  // namespace kt7::schema
