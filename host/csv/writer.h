#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace kt7::csv {

/// Writes one row as `Reader` reads it (RFC 4180, LF): a cell with a comma, a quote or a line break
/// stands in quotes, the others as they are.
void writeRow(std::ostream& out, std::span<const std::string> cells);

}  // namespace kt7::csv
