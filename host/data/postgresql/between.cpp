#include "host/data/postgresql/between.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include <kt7/error.h>

namespace kt7::data {

bool waitFor(int descriptor, short events, Deadline until) {
  for (;;) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    pollfd asked{.fd = descriptor, .events = events, .revents = 0};
    const int answer = ::poll(&asked, 1, static_cast<int>(left.count()));
    if (answer > 0) return true;
    if (answer < 0 && errno != EINTR) return true;  // reading or writing tells
  }
}

Between::Between(int socket) : socket_(socket), server_(::fcntl(socket, F_DUPFD_CLOEXEC, 0)) {
  std::array<int, 2> pair{-1, -1};
  const bool made =
      server_ >= 0 &&
      ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, pair.data()) == 0;
  own_ = pair[0];
  const bool placed = made && ::dup3(pair[1], socket, O_CLOEXEC) >= 0;
  if (pair[1] >= 0) ::close(pair[1]);
  if (placed) return;
  if (own_ >= 0) ::close(own_);
  if (server_ >= 0) ::close(server_);
  raiseConnectionFailed("cannot connect to the database: too many open files");
}

Between::~Between() {
  ::close(own_);
  ::close(server_);
}

bool Between::sendOn(Deadline until) {
  std::array<char, 4096> bytes;
  for (;;) {
    const ssize_t got = ::recv(own_, bytes.data(), bytes.size(), 0);
    if (got <= 0) return true;
    for (ssize_t sent = 0; sent < got;) {
      const ssize_t now = ::send(server_, &bytes[static_cast<std::size_t>(sent)],
                                 static_cast<std::size_t>(got - sent), MSG_NOSIGNAL);
      if (now > 0) sent += now;
      if (now < 0 && errno == EAGAIN && waitFor(server_, POLLOUT, until)) continue;
      if (now < 0 && errno != EINTR) return false;
    }
  }
}

Between::Got Between::read(std::size_t count, std::string& bytes, Deadline until) {
  const std::size_t wanted = bytes.size() + count;
  std::array<char, 4096> piece;
  while (bytes.size() < wanted) {
    const std::size_t most = std::min(wanted - bytes.size(), piece.size());
    const ssize_t got = ::recv(server_, piece.data(), most, 0);
    if (got > 0) {
      bytes.append(piece.data(), static_cast<std::size_t>(got));
    } else if (got < 0 && errno == EAGAIN) {
      if (!waitFor(server_, POLLIN, until)) return Got::Late;
    } else if (got == 0 || errno != EINTR) {
      return Got::Closed;
    }
  }
  return Got::Bytes;
}

void Between::passOn(std::string_view bytes) {
  // Never more than one message at a time: the pair holds it.
  const ssize_t sent = ::send(own_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
  if (sent != static_cast<ssize_t>(bytes.size())) close();
}

void Between::close() { ::shutdown(own_, SHUT_WR); }

void Between::giveBack(Deadline until) {
  sendOn(until);
  ::dup3(server_, socket_, O_CLOEXEC);
}

}  // namespace kt7::data
