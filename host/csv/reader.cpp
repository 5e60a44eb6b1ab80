#include "host/csv/reader.h"

#include <csv.h>
#include <utf8proc.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace kt7::csv {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;
constexpr std::size_t kMostCellBytes = std::size_t{1024} * 1024;
constexpr std::size_t kMostCells = 4096;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Blanks belong to the cell: the parser would cut those around an unquoted one.
int isNoSpace(unsigned char) { return 0; }

bool isBlankLine(std::string_view piece) {
  return piece.find_first_not_of("\r\n") == std::string_view::npos;
}

}  // namespace

/// The push parser and what it has handed over so far.
struct Reader::Parser {
  csv_parser state{};
  std::deque<Row> ready;
  Row open;
  bool inRow = false;
  bool hasTooMany = false;
  std::size_t line = 1;
  bool atStart = true;

  Parser() {
    if (csv_init(&state, CSV_STRICT | CSV_STRICT_FINI) != 0) {
      throw CsvError(0, "the CSV parser cannot be set up");
    }
    csv_set_space_func(&state, isNoSpace);
    // It would grow a long cell by 128 bytes at a time.
    csv_set_blk_size(&state, kBlockSize);
  }
  ~Parser() { csv_free(&state); }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  static void takeCell(void* bytes, std::size_t size, void* self) {
    auto& parser = *static_cast<Parser*>(self);
    parser.hasTooMany = parser.hasTooMany || parser.open.cells.size() == kMostCells;
    if (!parser.hasTooMany) {
      parser.open.cells.emplace_back(static_cast<const char*>(bytes), size);
    }
  }
  static void takeRow(int, void* self) {
    auto& parser = *static_cast<Parser*>(self);
    if (parser.hasTooMany) return;
    parser.ready.push_back(std::exchange(parser.open, Row{parser.open.line, {}}));
    parser.inRow = false;
  }

  /// The parser's callbacks cannot raise through it.
  void refuseTooMany() const {
    if (hasTooMany) raise("a row has more than " + std::to_string(kMostCells) + " cells");
  }

  [[noreturn]] void raise(const std::string& text) const { throw CsvError(open.line, text); }

  /// A line of the file, or a part of one where a block ended.
  void feed(std::string_view piece) {
    if (!inRow) {
      open.line = line;
      inRow = !isBlankLine(piece);
    }
    const std::size_t taken =
        csv_parse(&state, piece.data(), piece.size(), takeCell, takeRow, this);
    if (taken != piece.size()) {
      raise(csv_error(&state) == CSV_EPARSE
                ? "a quote stands where none may; a cell with quotes in it is put into quotes, "
                  "and those in it are doubled"
                : csv_strerror(csv_error(&state)));
    }
    refuseTooMany();
    if (state.entry_pos > kMostCellBytes)
      raise("a cell is longer than a mebibyte; is a quote open?");
    if (piece.ends_with('\n')) ++line;
  }
};

Reader::Reader(std::istream& stream) : stream_(stream), parser_(std::make_unique<Parser>()) {}

Reader::~Reader() = default;

bool Reader::next(Row& row) {
  while (parser_->ready.empty()) {
    if (finished_) return false;
    if (at_ < block_.size() || readBlock()) {
      parseLine();
    } else {
      finish();
    }
  }
  row = std::move(parser_->ready.front());
  parser_->ready.pop_front();
  return true;
}

bool Reader::readBlock() {
  block_.resize(kBlockSize);
  stream_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
  block_.resize(static_cast<std::size_t>(stream_.gcount()));
  if (stream_.bad()) throw CsvError(parser_->line, "the file cannot be read");
  at_ = 0;
  if (parser_->atStart && std::string_view(block_).starts_with(kByteOrderMark)) {
    at_ = kByteOrderMark.size();
  }
  parser_->atStart = false;
  return at_ < block_.size();
}

void Reader::parseLine() {
  const std::size_t newline = block_.find('\n', at_);
  const std::size_t end = newline == std::string::npos ? block_.size() : newline + 1;
  parser_->feed(std::string_view(block_).substr(at_, end - at_));
  at_ = end;
}

void Reader::finish() {
  finished_ = true;
  if (csv_fini(&parser_->state, Parser::takeCell, Parser::takeRow, parser_.get()) != 0) {
    parser_->raise("a quote is never closed");
  }
  parser_->refuseTooMany();
}

bool isValidText(const std::string& text) {
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  auto rest = static_cast<utf8proc_ssize_t>(text.size());
  while (rest > 0) {
    utf8proc_int32_t character = 0;
    const utf8proc_ssize_t size = utf8proc_iterate(bytes, rest, &character);
    if (size <= 0 || character == 0) return false;
    bytes += size;
    rest -= size;
  }
  return true;
}

std::size_t characterCount(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

}  // namespace kt7::csv
