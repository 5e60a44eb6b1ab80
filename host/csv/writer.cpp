#include "host/csv/writer.h"

#include <ostream>

#include "base/text.h"

namespace kt7::csv {

void writeRow(std::ostream& out, std::span<const std::string> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i != 0) out << ',';
    if (cells[i].find_first_of(",\"\r\n") == std::string::npos) {
      out << cells[i];
    } else {
      out << '"' << replaceAll(cells[i], "\"", "\"\"") << '"';
    }
  }
  out << '\n';
}

}  // namespace kt7::csv
