#include <gtest/gtest.h>

#include "host/schema/description/table_groups.h"
#include "host/schema/transfer/cell.h"

namespace kt7::schema {
namespace {

/// The value as text, or what is wrong.
std::string shown(const Column& column, const std::string& cell) {
  const auto result = readCell(column, cell);
  if (const auto* problem = std::get_if<CellProblem>(&result)) return "! " + problem->text;
  const Value& value = std::get<Value>(result);
  return value.isNull() ? "null" : value.toText();
}

TEST(Cell, IsReadByTheTypeOfItsColumn) {
  const std::string noSmall = "! is not a whole number from -32768 to 32767";
  const std::string noMoney = "! is not an amount with at most four decimals";
  const std::string noDate = "! is not a date (yyyy-mm-dd)";
  const Column rowId{"R", ColumnType::RowId};
  const struct {
    Column column;
    std::string cell;
    std::string result;
  } cases[] = {
      {code("C"), "", "null"},
      {code("C"), " ก-1 ", " ก-1 "},
      {code("C"), "a'b", "! holds a quote or a backslash, which a code cannot"},
      {code("C"), "a#$b", "! holds \"#$\", the mark of a date, which a code cannot"},
      {code("C"), "a\nb", "! holds a control character, which a code cannot"},
      {text("C", 9), "a#$b\n", "a#$b\n"},
      {rowId, "2147483646", "2147483646"},
      {rowId, "2147483647", "! is not a whole number from -2147483648 to 2147483646"},
      {code("C"), "a\\b", "! holds a quote or a backslash, which a code cannot"},
      {text("C", 4), "a'\\b", "a'\\b"},
      {text("C", 3), "กขค", "กขค"},
      {text("C", 3), "กขคง", "! is longer than 3 characters"},
      {text("C", 3), "\xE0\xB8", "! is not UTF-8 text"},
      {small("C"), "-32768", "-32768"},
      {small("C"), "32768", noSmall},
      {small("C"), "7.5", noSmall},
      {small("C"), " 7", noSmall},
      {whole("C"), "32768", "32768"},
      {whole("C"), "2147483648", "! is not a whole number from -2147483648 to 2147483647"},
      {number("C"), "-7.25", "-7.25"},
      {number("C"), "1,000", "! is not a number"},
      {number("C"), "inf", "! is not a number"},
      {number("C"), "12x", "! is not a number"},
      {money("C"), "31500.50", "31500.5"},
      {money("C"), "0.123400", "0.1234"},
      {money("C"), "0.12345", noMoney},
      {money("C"), "twelve", noMoney},
      {money("C"), "922337203685478", "! is beyond the range of an amount"},
      {date("C"), "2024-02-29", "29/2/2024"},
      {date("C"), "2025-02-29", noDate},
      {date("C"), "29/02/2024", noDate},
      {date("C"), "2024-02-29 08:00", noDate},
      {moment("C"), "2024-02-29 08:30:15x", "! is not a date and time (yyyy-mm-dd hh:mm:ss)"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(shown(row.column, row.cell), row.result) << "cell " << row.cell;
  }
  const auto read = readCell(moment("C"), "2024-02-29 08:30:15");
  EXPECT_EQ(std::get<Value>(read).toDate().isoDateTimeText(), "2024-02-29 08:30:15");
}

TEST(Cell, IsShownShortAndWhole) {
  EXPECT_EQ(shownCell("a\nb"), "\"a b\"");
  EXPECT_EQ(shownCell("\xFF"), "the cell");
  std::string thai;
  for (int i = 0; i < 50; ++i) thai += "ก";
  EXPECT_EQ(shownCell(thai), "\"" + thai.substr(0, std::size_t{40} * 3) + "...\"");
}

}  // namespace
}  // namespace kt7::schema
