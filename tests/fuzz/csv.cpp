#include "host/csv/reader.h"

#include <sstream>

#include "door.h"
#include "fronts/common/payroll_register.h"
#include "host/schema/transfer/cell.h"

namespace kt7::fuzz {

namespace {

constexpr std::size_t kBlock = 64 * 1024;

using Rows = std::optional<std::vector<csv::Row>>;

/// Nothing for what is no CSV.
Rows rowsOf(const std::string& text) {
  std::istringstream stream(text);
  csv::Reader reader(stream);
  std::vector<csv::Row> rows;
  try {
    for (csv::Row row; reader.next(row);) rows.push_back(row);
  } catch (const csv::CsvError& error) {
    require(rows.empty() || error.line() >= rows.back().line, "an error has its line");
    return std::nullopt;
  }
  return rows;
}

void isTheSameAcrossBlocks(const std::string& text, const Rows& rows) {
  if (text.starts_with('\xEF')) return;  // a byte order mark belongs to the start alone
  const Rows moved = rowsOf(std::string(kBlock - 1 - text.size() / 2, 'x') + "\n" + text);
  require(moved.has_value() == rows.has_value(), "read or refused wherever a block ends");
  if (!rows) return;
  require(moved->size() == rows->size() + 1, "as many rows wherever a block ends");
  for (std::size_t i = 0; i < rows->size(); ++i) {
    require((*moved)[i + 1].cells == (*rows)[i].cells, "the same cells wherever a block ends");
  }
}

void isReadAsWritten(const csv::Row& row) {
  std::ostringstream out;
  const auto writer = cli::registerWriter("csv", out, "2026-01");
  writer->add({.employee = row.cells.front(), .type = row.cells.back()});
  const std::vector<csv::Row> read = rowsOf(out.str()).value();
  require(read.size() == 2 && read[1].cells.size() == read[0].cells.size() &&
              read[1].cells[0] == row.cells.front() && read[1].cells[1] == row.cells.back(),
          "a written cell reads the same", out.str());
}

}  // namespace

void enter(std::string_view given) {
  const std::string text(given);
  const Rows rows = rowsOf(text);
  if (text.size() % 64 == 1) isTheSameAcrossBlocks(text, rows);
  if (!rows) return;
  std::size_t bytes = 0;
  for (const csv::Row& row : *rows) {
    for (const std::string& cell : row.cells) {
      bytes += cell.size();
      require(csv::isValidText(schema::shownCell(cell)), "a cell is shown as whole characters");
      require(csv::characterCount(cell) <= cell.size(), "no more characters than bytes");
    }
  }
  require(bytes <= text.size(), "cells hold no more than the file");
  if (!rows->empty()) isReadAsWritten(rows->back());
}

}  // namespace kt7::fuzz
