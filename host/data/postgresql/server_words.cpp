#include "host/data/postgresql/server_words.h"

#include <cstdint>

namespace kt7::data {

namespace {

std::uint32_t numberIn(std::string_view bytes) {
  std::uint32_t number = 0;
  constexpr unsigned kBitsOfByte = 8;
  constexpr std::size_t kBytes = 4;
  for (const char byte : bytes.substr(0, kBytes)) {
    number = number << kBitsOfByte | static_cast<unsigned char>(byte);
  }
  return number;
}

bool asksForText(std::string_view message) {
  constexpr std::uint32_t kPasswordAsText = 3;
  constexpr std::size_t kHead = ServerWords::kHeadBytes, kCode = 4;
  return message.front() == 'R' && message.size() >= kHead + kCode &&
         numberIn(message.substr(kHead)) == kPasswordAsText;
}

}  // namespace

std::size_t ServerWords::messageBytes(std::string_view head) {
  constexpr std::uint32_t kOwnBytes = 4, kMost = 30000;  // as much as the client library takes
  const std::uint32_t length = numberIn(head.substr(1));
  return length < kOwnBytes || length > kMost ? 0 : length + 1;
}

ServerWords::Heard ServerWords::hear(std::string_view piece) {
  unread_ += piece;
  while (unread_.size() >= kHeadBytes) {
    const std::size_t bytes = messageBytes(unread_);
    if (bytes == 0) return Heard::Garbled;
    if (unread_.size() < bytes) break;
    if (asksForText(std::string_view(unread_).substr(0, bytes))) return Heard::AskedForText;
    unread_.erase(0, bytes);
  }
  return Heard::Fine;
}

}  // namespace kt7::data
