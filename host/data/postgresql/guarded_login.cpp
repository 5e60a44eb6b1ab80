#include "host/data/postgresql/guarded_login.h"

#include <openssl/err.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <sys/stat.h>

#include <array>
#include <optional>

#include "host/data/postgresql/between.h"
#include "host/data/postgresql/server_words.h"

namespace kt7::data {

namespace {

/// Which connection a descriptor is: the library closes one and opens the next under its number.
ino_t identityOf(int socket) {
  struct stat about {};
  return socket >= 0 && ::fstat(socket, &about) == 0 ? about.st_ino : 0;
}

/// Where the library has asked something and the server's answer decides what it sends next.
bool isLoggingIn(ConnStatusType status) {
  return status == CONNECTION_MADE || status == CONNECTION_AWAITING_RESPONSE ||
         status == CONNECTION_SSL_STARTUP || status == CONNECTION_GSS_STARTUP;
}

LoginEnd toldBy(ServerWords::Heard heard) {
  if (heard == ServerWords::Heard::Fine) return LoginEnd::Told;
  return heard == ServerWords::Heard::AskedForText ? LoginEnd::AskedForText : LoginEnd::Garbled;
}

/// In plain the server's messages pass through here one by one. Under TLS the library reads one
/// record a time, which is looked at first. What Kerberos encrypts comes from the right server.
class GuardedLogin {
 public:
  explicit GuardedLogin(PGconn* connection) : connection_(connection) {}

  LoginEnd run() {
    if (PQstatus(connection_) == CONNECTION_BAD) return LoginEnd::Told;  // it never began
    PostgresPollingStatusType wants = PGRES_POLLING_WRITING;
    while (wants == PGRES_POLLING_READING || wants == PGRES_POLLING_WRITING) {
      follow();
      const LoginEnd refused = allowStep(wants == PGRES_POLLING_READING);
      if (refused != LoginEnd::Told) return refused;
      wants = PQconnectPoll(connection_);
      if (between_ && identityOf(PQsocket(connection_)) == identity_ && mayGoDirect()) goDirect();
    }
    return LoginEnd::Told;
  }

 private:
  bool encrypted() const { return PQsslInUse(connection_) != 0 || PQgssEncInUse(connection_) != 0; }

  /// Notices the next address, and stands between before the first byte is sent to it.
  void follow() {
    const int socket = PQsocket(connection_);
    if (identityOf(socket) != identity_) {
      constexpr std::chrono::seconds kConnectSeconds(5);
      between_.reset();
      words_ = {};
      negotiated_ = false;
      identity_ = identityOf(socket);
      until_ = std::chrono::steady_clock::now() + kConnectSeconds;
    }
    if (PQstatus(connection_) != CONNECTION_MADE || between_ || encrypted()) return;
    between_.emplace(socket);
    identity_ = identityOf(socket);
  }

  /// Waits until the library may go on. Anything but Told: it may not.
  LoginEnd allowStep(bool reads) {
    if (between_) return passOn(reads);
    if (reads && PQsslInUse(connection_) != 0) {
      if (PQstatus(connection_) == CONNECTION_AWAITING_RESPONSE) return lookAhead();
      if (const SSL* const own = tls(); own != nullptr && SSL_pending(own) > 0) {
        return LoginEnd::Told;  // no longer on the network
      }
    }
    return waitFor(PQsocket(connection_), reads ? POLLIN : POLLOUT, until_) ? LoginEnd::Told
                                                                            : LoginEnd::TimedOut;
  }

  /// Null where the library encrypts by another one than OpenSSL.
  SSL* tls() const { return static_cast<SSL*>(PQsslStruct(connection_, "OpenSSL")); }

  LoginEnd passOn(bool reads) {
    if (!between_->sendOn(until_)) between_->close();
    pollfd unread{.fd = PQsocket(connection_), .events = POLLIN, .revents = 0};
    if (!reads || ::poll(&unread, 1, 0) > 0) return LoginEnd::Told;
    std::string bytes;
    const bool negotiates = PQstatus(connection_) != CONNECTION_AWAITING_RESPONSE;
    Between::Got got = between_->read(negotiates ? 1 : ServerWords::kHeadBytes, bytes, until_);
    if (got == Between::Got::Bytes && negotiates) {
      // An error in place of an answer is not encrypted, and said by nobody knows whom.
      negotiated_ = bytes == "S" || bytes == "G";
      if (!negotiated_ && bytes != "N") return LoginEnd::Garbled;
    } else if (got == Between::Got::Bytes) {
      const std::size_t whole = ServerWords::messageBytes(bytes);
      if (whole == 0) return LoginEnd::Garbled;
      got = between_->read(whole - bytes.size(), bytes, until_);
    }
    if (got == Between::Got::Late) return LoginEnd::TimedOut;
    if (got == Between::Got::Closed) {
      between_->close();
      return LoginEnd::Told;
    }
    if (!negotiates) {
      const LoginEnd told = toldBy(words_.hear(bytes));
      if (told != LoginEnd::Told) return told;
    }
    between_->passOn(bytes);
    return LoginEnd::Told;
  }

  LoginEnd lookAhead() {
    // As much as the library surely has room for: what it reads is what was looked at.
    constexpr std::size_t kMost = 8192;
    std::array<char, kMost + 1> record;
    SSL* const own = tls();
    if (own == nullptr) return LoginEnd::AskedForText;  // nobody knows what it asks for
    for (;;) {
      ERR_clear_error();
      const int got = SSL_peek(own, record.data(), static_cast<int>(record.size()));
      if (got > static_cast<int>(kMost)) return LoginEnd::Garbled;
      if (got > 0) return toldBy(words_.hear({record.data(), static_cast<std::size_t>(got)}));
      if (SSL_get_error(own, got) != SSL_ERROR_WANT_READ) return LoginEnd::Told;
      if (!waitFor(PQsocket(connection_), POLLIN, until_)) return LoginEnd::TimedOut;
    }
  }

  bool mayGoDirect() const { return negotiated_ || !isLoggingIn(PQstatus(connection_)); }

  void goDirect() {
    if (PQstatus(connection_) == CONNECTION_BAD) return;
    between_->giveBack(until_);
    between_.reset();
    identity_ = identityOf(PQsocket(connection_));
  }

  PGconn* connection_;
  std::optional<Between> between_;
  ServerWords words_;
  ino_t identity_ = 0;
  bool negotiated_ = false;  // that what follows is encrypted
  Deadline until_;
};

}  // namespace

LoginEnd endGuarded(PGconn* connection) { return GuardedLogin(connection).run(); }

}  // namespace kt7::data
