#include "support/unseen_message.h"

#include <cstdio>
#include <string>

namespace kt7 {

namespace {

/// How many bytes a control character takes at the front of the text, 0 for any other character. A
/// terminal obeys the second kind too: in UTF-8, C2 80 to C2 9F.
std::size_t controlAt(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x20 || first == 0x7F) return 1;
  if (first != 0xC2 || text.size() < 2) return 0;
  const auto second = static_cast<unsigned char>(text[1]);
  return second >= 0x80 && second < 0xA0 ? 2 : 0;
}

}  // namespace

void writeUnseenMessage(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const std::size_t control = controlAt(text);
    line += control > 0 ? ' ' : text[0];
    text.remove_prefix(control > 0 ? control : 1);
  }
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace kt7
