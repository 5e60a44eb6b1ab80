#include "payroll_input.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <kt7/payroll/input_row.h>
#include "base/text.h"
#include "host/csv/header.h"
#include "host/csv/reader.h"
#include "host/schema/description/entered_text.h"
#include "host/schema/description/table_groups.h"

namespace kt7::cli {

namespace {

struct InputColumn {
  const char* name;
  std::string payroll::InputRow::*text;
};

constexpr std::array<InputColumn, 5> kColumns{{{"EmployeeCode", &payroll::InputRow::employee},
                                               {"PayDate", &payroll::InputRow::payDate},
                                               {"Kind", &payroll::InputRow::kind},
                                               {"Quantity", &payroll::InputRow::quantity},
                                               {"Amount", &payroll::InputRow::amount}}};

using Places = std::array<std::size_t, kColumns.size()>;

Places placesOf(const csv::Row& row, const std::string& file) {
  std::array<std::string_view, kColumns.size()> names;
  std::ranges::transform(kColumns, names.begin(), &InputColumn::name);
  const csv::Header header = csv::readHeader(row, "a month's input", names);
  if (!header.problems.empty()) {
    throw std::runtime_error("'" + file + "' cannot be used: " + joined(header.problems, "; "));
  }
  Places places{};
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    const auto cell = std::ranges::find(header.columns, i);
    if (cell == header.columns.end()) {
      throw std::runtime_error("'" + file + "' has no column " + kColumns[i].name +
                               "; its first line must name EmployeeCode, PayDate, Kind, Quantity "
                               "and Amount");
    }
    places[i] = static_cast<std::size_t>(cell - header.columns.begin());
  }
  return places;
}

payroll::InputRow brokenRow(std::size_t line, const std::string& problem) {
  payroll::InputRow row;
  row.line = static_cast<int>(line);
  row.problem = problem;
  return row;
}

payroll::InputRow rowOf(const csv::Row& row, std::size_t width, const Places& places) {
  if (row.cells.size() != width) {
    return brokenRow(row.line, std::to_string(row.cells.size()) +
                                   " cells where the first line names " + std::to_string(width));
  }
  payroll::InputRow read;
  read.line = static_cast<int>(row.line);
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    const std::string& cell = row.cells[places[i]];
    if (!csv::isValidText(cell)) {
      return brokenRow(row.line, std::string(kColumns[i].name) + " is not UTF-8 text");
    }
    read.*kColumns[i].text = std::string(trimmedBlanks(cell));
  }
  // Any kind that is not known is one of the company's own, and kept.
  auto why = schema::whyUnkept(read.kind, schema::kCodeLength);
  if (!why && schema::whyNoCode(read.kind) != nullptr) why = schema::whyNoCode(read.kind);
  if (why) return brokenRow(row.line, "the kind " + csv::shownCell(read.kind) + " " + *why);
  return read;
}

}  // namespace

std::vector<payroll::InputRow> readPayrollInput(const std::string& file) {
  std::ifstream stream(std::filesystem::path(std::u8string(file.begin(), file.end())));
  if (!stream) throw std::runtime_error("cannot read '" + file + "'");
  return readPayrollInput(stream, file);
}

std::vector<payroll::InputRow> readPayrollInput(std::istream& stream, const std::string& file) {
  std::vector<payroll::InputRow> rows;
  try {
    csv::Reader reader(stream);
    csv::Row row;
    if (!reader.next(row)) throw std::runtime_error("'" + file + "' is empty");
    const std::size_t width = row.cells.size();
    const Places places = placesOf(row, file);
    while (reader.next(row)) rows.push_back(rowOf(row, width, places));
  } catch (const csv::CsvError& error) {
    rows.push_back(brokenRow(error.line(), error.what()));
  }
  return rows;
}

}  // namespace kt7::cli
