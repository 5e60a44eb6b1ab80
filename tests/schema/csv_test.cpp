#include <gtest/gtest.h>

#include <sstream>

#include "host/csv/reader.h"

namespace kt7::csv {
namespace {

/// Every row as "line:cell|cell", a failure as "line!".
std::string readAll(const std::string& text) {
  std::istringstream stream(text);
  Reader reader(stream);
  std::string shown;
  try {
    for (Row row; reader.next(row);) {
      shown += std::to_string(row.line) + ":";
      for (std::size_t i = 0; i < row.cells.size(); ++i) shown += (i ? "|" : "") + row.cells[i];
      shown += "/";
    }
  } catch (const CsvError& error) {
    shown += std::to_string(error.line()) + "!";
  }
  return shown;
}

TEST(CsvReader, ReadsRowsWithTheirLines) {
  const struct {
    const char* what;
    std::string text;
    std::string rows;
  } cases[] = {
      {"plain, last line without end", "a,b\nc,d", "1:a|b/2:c|d/"},
      {"CRLF", "a,b\r\nc,d\r\n", "1:a|b/2:c|d/"},
      {"byte order mark",
       "\xEF\xBB\xBF"
       "a\nb\n",
       "1:a/2:b/"},
      {"only a byte order mark", "\xEF\xBB\xBF", ""},
      {"quotes, doubled quotes, comma", "\"a,\"\"x\"\"\",b\n", "1:a,\"x\"|b/"},
      {"a break in quotes keeps the start line", "\"a\nb\",c\nd,e\n", "1:a\nb|c/3:d|e/"},
      {"empty lines are passed over and counted", "a\n\n\r\nb\n", "1:a/4:b/"},
      {"blanks belong to the cell", " a , b\t\n", "1: a | b\t/"},
      {"empty cells", ",\n\"\",x\n", "1:|/2:|x/"},
      {"Thai", "นาย,นาง\n", "1:นาย|นาง/"},
      {"quote in an open cell", "a,b\nc\"d,e\n", "1:a|b/2!"},
      {"text after a closing quote", "a\n\"b\"c\n", "1:a/2!"},
      {"quote never closed", "a\nb,\"c\nd\ne\n", "1:a/2!"},
      {"a cell beyond a mebibyte", "a\nb\n\"" + std::string(1100000, 'x'), "1:a/2:b/3!"},
      {"more cells than any table has columns", "a\n" + std::string(4096, ',') + "\nb\n", "1:a/2!"},
      {"nothing", "", ""},
  };
  for (const auto& row : cases) EXPECT_EQ(readAll(row.text), row.rows) << row.what;
}

TEST(CsvReader, RowsMayLieAcrossBlocks) {
  std::string text;
  std::string rows;
  for (int line = 1; line <= 20000; ++line) {
    const std::string number = std::to_string(line);
    text.append(number).append(",\"x").append(number).append("\"\n");
    rows.append(number).append(":").append(number).append("|x").append(number).append("/");
  }
  EXPECT_EQ(readAll(text), rows);
}

TEST(CsvReader, TellsBrokenTextAndCountsCharacters) {
  EXPECT_TRUE(isValidText("ก้าว\n"));
  for (const char* broken : {"\xE0\xB8", "\xFF", "a\xC0\x80", "\xED\xA0\x80"}) {
    EXPECT_FALSE(isValidText(broken));
  }
  EXPECT_FALSE(isValidText(std::string("a\0b", 3)));
  EXPECT_EQ(characterCount("กขค1"), 4u);
}

}  // namespace
}  // namespace kt7::csv
