#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/csv/reader.h"

namespace kt7::csv {

/// Which of the known columns each cell of a file's first line names, by their numbers.
struct Header {
  std::vector<std::size_t> columns;
  /// Every name that is unknown or repeated, with its line; while there is one the columns lack it.
  std::vector<std::string> problems;
};

/// Neither letter case nor blanks around a name count. `owner` is who has the columns that `known`
/// names: "KT7TBranch".
Header readHeader(const Row& row, const std::string& owner,
                  std::span<const std::string_view> known);

/// A cell as it can be shown in a message: in quotes, cut, never broken characters.
std::string shownCell(const std::string& cell);

}  // namespace kt7::csv
