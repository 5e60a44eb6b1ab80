#pragma once

#include <string>
#include <string_view>

namespace kt7::roles {

/// The SELECT of one column by key, the key as "?". Where the table text carries a WHERE of its
/// own the key condition joins it, before its GROUP BY or ORDER BY. Letter case and what stands in
/// quotes or parentheses do not matter. Written into `sql`, whose memory is used again.
void writeLookupStatement(std::string& sql, std::string_view resultColumn,
                          std::string_view keyColumn, std::string_view table);

}  // namespace kt7::roles
