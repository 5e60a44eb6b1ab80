#include "support/unseen_message.h"

#include <algorithm>
#include <cstdio>

namespace kt7 {

void writeUnseenMessage(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  text += '\n';
  std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace kt7
