#pragma once

#include <cstddef>
#include <deque>
#include <istream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace kt7::csv {

/// A text that is no CSV: where it went wrong and how.
class CsvError : public std::runtime_error {
 public:
  CsvError(std::size_t line, const std::string& text) : std::runtime_error(text), line_(line) {}
  /// The line of the file, from 1, on which the broken row starts.
  std::size_t line() const { return line_; }

 private:
  std::size_t line_;
};

struct Row {
  std::size_t line = 0;  // on which the row starts, from 1
  std::vector<std::string> cells;
};

/// Reads comma-separated rows (RFC 4180: quotes, doubled quotes, line breaks inside quotes; LF or
/// CRLF) off a stream, holding a block of it and the row at hand. Blanks belong to a cell, empty
/// lines are passed over, a byte order mark at the start is dropped.
class Reader {
 public:
  /// The stream must outlive the reader.
  explicit Reader(std::istream& stream);
  ~Reader();
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  /// False after the last row. CsvError for broken quoting, a cell beyond a mebibyte, a row of more
  /// cells than any table has columns, or a stream that cannot be read.
  bool next(Row& row);

 private:
  struct Parser;

  bool readBlock();
  void parseLine();
  void finish();

  std::istream& stream_;
  std::unique_ptr<Parser> parser_;
  std::string block_;
  std::size_t at_ = 0;
  bool finished_ = false;
};

/// True for well-formed UTF-8 without a zero byte.
bool isValidText(const std::string& text);
/// The number of characters (code points) of a well-formed text.
std::size_t characterCount(const std::string& text);

}  // namespace kt7::csv
