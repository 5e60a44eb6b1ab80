#include "request_lines.h"

namespace kt7::cli {

namespace {

constexpr auto kEnd = std::char_traits<char>::eof();

}  // namespace

RequestLines::Next RequestLines::next(std::string& line) {
  // Straight from the buffer: the stream's own reading would take every failure for the end.
  if (stream_.bad()) throw std::ios_base::failure("the stream cannot be read");
  std::streambuf& buffer = *stream_.rdbuf();
  const auto passOver = [&] {
    auto byte = buffer.sbumpc();
    while (byte != kEnd && byte != '\n') byte = buffer.sbumpc();
    inLine_ = false;
  };
  if (inLine_) passOver();
  line.clear();
  auto byte = buffer.sbumpc();
  if (byte == kEnd) return Next::End;
  inLine_ = true;
  for (; byte != kEnd && byte != '\n'; byte = buffer.sbumpc()) {
    if (line.size() == kLongest) {
      passOver();
      return Next::TooLong;
    }
    line += std::char_traits<char>::to_char_type(byte);
  }
  inLine_ = false;
  return Next::Line;
}

}  // namespace kt7::cli
