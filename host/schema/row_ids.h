#pragma once

#include "collab/ado.h"
#include "host/schema/table.h"

namespace kt7::schema {

/// After rows were added with row ids of their own: lets the database give the next row an id above
/// all of them. Most engines see to it themselves.
void advanceRowIds(ado::Connection& connection, const Table& table);

}  // namespace kt7::schema
