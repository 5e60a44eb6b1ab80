#pragma once

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <functional>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

namespace kt7::data::test {

/// A server that says what it is told to, on a port of its own on every address of this machine,
/// and keeps every byte that reaches it.
class FakeServer {
 public:
  class Peer {
   public:
    Peer(int socket, std::string& bytes, std::mutex& mutex)
        : socket_(socket), bytes_(bytes), mutex_(mutex) {}
    void say(const std::string& bytes) const {
      if (::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL) < 0) return;
    }
    /// What comes next; "" at the end of the connection.
    std::string hear() const {
      char piece[4096];
      pollfd asked{.fd = socket_, .events = POLLIN, .revents = 0};
      const ssize_t got = ::poll(&asked, 1, 1000) > 0 ? ::recv(socket_, piece, sizeof piece, 0) : 0;
      if (got <= 0) return {};
      const std::lock_guard lock(mutex_);
      bytes_.append(piece, static_cast<std::size_t>(got));
      return {piece, static_cast<std::size_t>(got)};
    }

   private:
    int socket_;
    std::string& bytes_;
    std::mutex& mutex_;
  };

  explicit FakeServer(std::function<void(const Peer&)> script)
      : script_(std::move(script)), listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    socklen_t size = sizeof address;
    if (::bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        ::listen(listener_, 8) != 0 ||
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
      throw std::runtime_error("no port for a fake server");
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
  }
  ~FakeServer() {
    ::shutdown(listener_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
  }
  FakeServer(const FakeServer&) = delete;
  FakeServer& operator=(const FakeServer&) = delete;

  std::string port() const { return std::to_string(port_); }
  std::string heard() const {
    const std::lock_guard lock(mutex_);
    return bytes_;
  }

 private:
  void serve() {
    for (int socket = 0; (socket = ::accept(listener_, nullptr, nullptr)) >= 0;) {
      script_(Peer(socket, bytes_, mutex_));
      ::close(socket);
    }
  }

  std::function<void(const Peer&)> script_;
  int listener_;
  in_port_t port_ = 0;
  std::string bytes_;
  mutable std::mutex mutex_;
  std::thread thread_;
};

}  // namespace kt7::data::test
