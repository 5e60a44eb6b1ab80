#pragma once

#include <kt7/contract/data_access.h>
#include "host/schema/description/table.h"

namespace kt7::schema {

/// After rows were added with row ids of their own: lets the database give the next row an id above
/// all of them. Most engines see to it themselves.
void advanceRowIds(ado::Connection& connection, const Table& table);

}  // namespace kt7::schema
