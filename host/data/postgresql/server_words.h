#pragma once

#include <string>
#include <string_view>

namespace kt7::data {

/// What a server says during a login, message by message.
class ServerWords {
 public:
  enum class Heard { Fine, AskedForText, Garbled };

  static constexpr std::size_t kHeadBytes = 5;
  /// How long the whole message is that begins with this head; 0 where no server begins so.
  static std::size_t messageBytes(std::string_view head);

  /// The next piece, of any size; what is behind the last whole message waits for the next one.
  Heard hear(std::string_view piece);

 private:
  std::string unread_;
};

}  // namespace kt7::data
