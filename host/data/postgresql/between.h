#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace kt7::data {

using Deadline = std::chrono::steady_clock::time_point;

/// Waits until the descriptor can be read (POLLIN) or written (POLLOUT); false at the deadline.
bool waitFor(int descriptor, short events, Deadline until);

/// Stands between a client library and the server it connected to: the library's descriptor becomes
/// one end of a pair, so that it reads only what was passed on to it.
class Between {
 public:
  enum class Got { Bytes, Closed, Late };

  explicit Between(int socket);
  ~Between();
  Between(const Between&) = delete;
  Between& operator=(const Between&) = delete;

  /// Sends on what the library has written. False where the server takes no more.
  bool sendOn(Deadline until);
  /// Reads exactly that many bytes of the server's, appended to `bytes`.
  Got read(std::size_t count, std::string& bytes, Deadline until);
  void passOn(std::string_view bytes);
  /// The library reads the end of the connection.
  void close();
  /// The library's descriptor is the server's again. Only while the library still has it open.
  void giveBack(Deadline until);

 private:
  int socket_;
  int server_;
  int own_ = -1;
};

}  // namespace kt7::data
