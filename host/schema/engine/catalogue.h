#pragma once

#include <set>
#include <string>

#include <kt7/contract/data_access.h>
#include "host/schema/engine/ddl.h"

namespace kt7::schema {

/// What the database really holds of this system, under lower-case names.
struct Catalogue {
  std::set<std::string> relations;  // tables and views
  std::set<std::string> indexes;
  bool indexesKnown = true;  // false where the engine has no common way to tell

  bool holds(std::string_view table) const;
  bool holdsIndex(std::string_view name) const;
};

Catalogue readCatalogue(ado::Connection& connection, Engine engine);

}  // namespace kt7::schema
