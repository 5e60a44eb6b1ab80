#pragma once

#include <istream>
#include <string>

namespace kt7::cli {

/// The lines of a stream, none of them held beyond a length that every honest request stays below.
class RequestLines {
 public:
  static constexpr std::size_t kLongest = std::size_t{1024} * 1024;

  enum class Next { Line, TooLong, End };

  /// The stream must outlive the object.
  explicit RequestLines(std::istream& stream) : stream_(stream) {}

  /// The next line without its line break; one that is too long is passed over to its end. Raises
  /// std::ios_base::failure where the stream cannot be read: that is never its end. After
  /// std::bad_alloc the next call goes on behind the line.
  Next next(std::string& line);

 private:
  std::istream& stream_;
  bool inLine_ = false;
};

}  // namespace kt7::cli
