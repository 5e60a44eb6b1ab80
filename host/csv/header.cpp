#include "host/csv/header.h"

#include <algorithm>

#include "base/text.h"

namespace kt7::csv {

Header readHeader(const Row& row, const std::string& owner,
                  std::span<const std::string_view> known) {
  constexpr std::size_t kMostProblems = 10;
  const std::string at = "line " + std::to_string(row.line) + ": ";
  Header header;
  for (const std::string& cell : row.cells) {
    if (header.problems.size() == kMostProblems) break;
    const std::string_view name = trimmedBlanks(cell);
    const auto found = std::ranges::find_if(
        known, [&](std::string_view column) { return equalNoCase(column, name); });
    const auto column = static_cast<std::size_t>(found - known.begin());
    if (found == known.end()) {
      header.problems.push_back(at + owner + " has no column " + shownCell(std::string(name)));
    } else if (std::ranges::find(header.columns, column) != header.columns.end()) {
      header.problems.push_back(at + "column " + std::string(*found) + " stands there twice");
    }
    header.columns.push_back(column);
  }
  return header;
}

std::string shownCell(const std::string& cell) {
  constexpr std::size_t kMostShown = 40;
  if (!isValidText(cell)) return "the cell";
  const std::string start = firstCharacters(cell, kMostShown);
  std::string shown = "\"";
  for (const char byte : start) shown += byte == '\n' || byte == '\r' ? ' ' : byte;
  return shown + (start.size() < cell.size() ? "...\"" : "\"");
}

}  // namespace kt7::csv
