#pragma once

#include <string>

#include <kt7/roles/data_source.h>
#include "roles/data/snapshot.h"

namespace kt7::roles {

/// Reads the rows of a source into a snapshot. A statement error for a row that has not one value a
/// column.
void readRows(const Rows& from, data::Snapshot& to, const std::string& sql);

}  // namespace kt7::roles
