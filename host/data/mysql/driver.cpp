#include "host/data/mysql/driver.h"

#include <mariadb/errmsg.h>
#include <mariadb/mysqld_error.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <mutex>

#include <kt7/error.h>
#include <kt7/host/drivers.h>
#include "base/number_text.h"
#include "base/text.h"
#include "host/data/mysql/session.h"
#include "host/data/session/driver.h"
#include "host/data/session/engine_settings.h"
#include "host/data/session/keep_alive.h"
#include "host/data/session/loopback.h"
#include "host/data/session/missing_database.h"

namespace kt7::data {

namespace {

constexpr unsigned kConnectSeconds = 5;

unsigned portIn(std::string_view text) {
  if (text.empty()) return 0;
  unsigned port = 0;
  constexpr unsigned kLastPort = 65535;
  if (!readPlainNumber(text, port) || port > kLastPort) {
    raiseConnectionFailed("'" + std::string(text) + "' is no port; write Port=3306");
  }
  return port;
}

std::string firstOf(const ConnectionString& where, std::string_view one, std::string_view other) {
  return std::string(where.value(one).empty() ? where.value(other) : where.value(one));
}

const char* orNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

enum class Tls { Off, Required, Verified };

Tls tlsIn(const ConnectionString& where) {
  const std::string_view mode = where.value("SslMode");
  if (equalNoCase(mode, "disable")) return Tls::Off;
  if (equalNoCase(mode, "require")) return Tls::Required;
  if (equalNoCase(mode, "verify") || equalNoCase(mode, "verify-full")) return Tls::Verified;
  if (!mode.empty()) {
    raiseConnectionFailed("'" + std::string(mode) +
                          "' is no SslMode; write disable, require or verify-full");
  }
  if (!where.value("SslCa").empty()) return Tls::Verified;
  const bool ownCertificate = !where.value("SslCert").empty() || !where.value("SslKey").empty();
  return ownCertificate ? Tls::Required : Tls::Off;
}

void setTls(MYSQL* connection, const ConnectionString& where, Tls tls, bool bySocket) {
  if (tls == Tls::Off) return;
  const std::string authority(where.value("SslCa"));
  const std::string certificate(where.value("SslCert"));
  const std::string key(where.value("SslKey"));
  mysql_ssl_set(connection, orNull(key), orNull(certificate), orNull(authority), nullptr, nullptr);
  const my_bool on = 1;
  const my_bool checked = tls == Tls::Verified ? 1 : 0;
  mysql_options(connection, MYSQL_OPT_SSL_ENFORCE, &on);
  mysql_options(connection, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &checked);
  // "Enforce" alone means "where the server offers it". Asked for a fingerprint, even an empty one
  // that is compared with nothing, the library refuses the others before it sends the login.
  if (!bySocket) mysql_options(connection, MARIADB_OPT_TLS_PEER_FP, "");
  // The plugin that the server names would run before that, and may ask a person for passwords.
  mysql_options(connection, MYSQL_DEFAULT_AUTH, "mysql_native_password");
}

/// Without encryption a server that is anywhere gets no password from which it could be read: as
/// text, or encrypted with a key that the server itself names. The oldest scramble is no better.
void restrictLogin(MYSQL* connection) {
  mysql_options(connection, MARIADB_OPT_RESTRICTED_AUTH, "mysql_native_password,client_ed25519");
}

/// Only where the system can be told so: elsewhere its own times go. A socket file has none.
void setKeepAlive(MYSQL* connection, const std::optional<KeepAlive>& wanted) {
#ifdef TCP_USER_TIMEOUT
  if (!wanted) return;
  constexpr int kMilliseconds = 1000;
  const std::pair<int, int> options[] = {{TCP_KEEPIDLE, wanted->firstQuestion},
                                         {TCP_KEEPINTVL, wanted->nextQuestion},
                                         {TCP_KEEPCNT, wanted->questions},
                                         {TCP_USER_TIMEOUT, wanted->lostAfter * kMilliseconds}};
  const my_socket socket = mysql_get_socket(connection);
  const int on = 1;
  setsockopt(socket, SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
  for (const auto& [option, value] : options) {
    setsockopt(socket, IPPROTO_TCP, option, &value, sizeof value);
  }
#endif
}

[[noreturn]] void raiseCannotConnect(MYSQL* connection, const std::string& server,
                                     const std::string& database) {
  const auto code = static_cast<std::int32_t>(mysql_errno(connection));
  const std::string state = mysql_sqlstate(connection);
  std::string text = "cannot connect to the database" +
                     (database.empty() ? "" : " '" + database + "'") + " at " + server + ": " +
                     mysql_error(connection);
  if (code == ER_BAD_DB_ERROR) throw MissingDatabase(text, {{}, code, state});
  if (code == CR_PLUGIN_NOT_ALLOWED) {
    text +=
        "; over a network that is not encrypted it could read the password from that; write "
        "SslMode=verify-full";
  }
  raiseConnectionFailed(text, {{}, code, state});
}

/// A host, with a port of its own where one follows: "db2:3307".
struct Server {
  std::string host;
  unsigned port = 0;
};

Server serverIn(const std::string& text, const ConnectionString& where) {
  const std::size_t colon = text.find(':');
  const bool withPort =
      colon != std::string::npos && text.find(':', colon + 1) == std::string::npos;
  if (!withPort) return {text, portIn(where.value("Port"))};
  return {text.substr(0, colon), portIn(std::string_view(text).substr(colon + 1))};
}

MysqlHandle connectTo(const std::string& server, const ConnectionString& where,
                      const std::string& user, const std::string& password,
                      const std::string& database, const std::optional<KeepAlive>& keepAlive) {
  // Once for all threads: the first connection would do it, but not safely.
  [[maybe_unused]] static const int ready = mysql_library_init(0, nullptr, nullptr);
  MysqlHandle handle(mysql_init(nullptr));
  if (handle == nullptr) throw std::bad_alloc();
  MYSQL* const connection = handle.get();
  mysql_options(connection, MYSQL_OPT_CONNECT_TIMEOUT, &kConnectSeconds);
  mysql_options(connection, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  // A server could ask for any file of this machine.
  constexpr unsigned kOff = 0;
  mysql_options(connection, MYSQL_OPT_LOCAL_INFILE, &kOff);
  const std::string socket(where.value("Socket"));
  const Server at = socket.empty() ? serverIn(server, where) : Server{"localhost"};
  const Tls tls = tlsIn(where);
  setTls(connection, where, tls, at.host == "localhost");
  if (tls == Tls::Off && !isLoopback(at.host)) restrictLogin(connection);
  if (mysql_real_connect(connection, at.host.c_str(), user.c_str(), password.c_str(),
                         orNull(database), at.port, orNull(socket), CLIENT_FOUND_ROWS) == nullptr) {
    raiseCannotConnect(connection, socket.empty() ? server : socket, database);
  }
  if (tls != Tls::Off && at.host != "localhost" && mysql_get_ssl_cipher(connection) == nullptr) {
    raiseConnectionFailed("the connection to " + server + " is not encrypted");
  }
  setKeepAlive(connection, keepAlive);
  const char* const settings = settingsOf(isMariadb(mysql_get_server_info(connection)));
  if (mysql_query(connection, settings) != 0) raiseCannotConnect(connection, server, database);
  return handle;
}

/// A node that has lost its cluster takes connections and answers nothing.
void requireServing(MYSQL* connection, const std::string& server, const std::string& database) {
  if (mysql_query(connection, "SELECT 1") != 0) raiseCannotConnect(connection, server, database);
  mysql_free_result(mysql_store_result(connection));
}

/// The servers that could not be reached in the last half minute: they are tried last, so that not
/// every connection waits for them.
class Unreachable {
 public:
  void note(const std::string& server) {
    const std::lock_guard lock(mutex_);
    since_[server] = Clock::now();
  }

  /// The servers in their order, those noted behind the others.
  std::vector<std::string> last(std::vector<std::string> servers) {
    const std::lock_guard lock(mutex_);
    for (std::string& server : servers) server = std::string(trimmedBlanks(server));
    std::stable_partition(servers.begin(), servers.end(),
                          [this](const std::string& server) { return !isNoted(server); });
    return servers;
  }

 private:
  using Clock = std::chrono::steady_clock;

  bool isNoted(const std::string& server) const {
    constexpr std::chrono::seconds kRemembered(30);
    const auto known = since_.find(server);
    return known != since_.end() && Clock::now() - known->second < kRemembered;
  }

  std::mutex mutex_;
  std::map<std::string, Clock::time_point> since_;
};

Unreachable& unreachable() {
  static auto* const instance = new Unreachable;
  return *instance;
}

/// Whether every server of a cluster would refuse alike: the user, the password, the database, or
/// (without a code) what the connection string says.
bool isFinal(std::int32_t code) {
  constexpr std::int32_t kAlike[] = {0, ER_ACCESS_DENIED_ERROR, ER_DBACCESS_DENIED_ERROR,
                                     ER_BAD_DB_ERROR, ER_ACCESS_DENIED_NO_PASSWORD_ERROR};
  return std::find(std::begin(kAlike), std::end(kAlike), code) != std::end(kAlike);
}

MysqlHandle connect(const ConnectionString& where, std::string_view user, std::string_view password,
                    const std::string& database) {
  const std::string name = user.empty() ? firstOf(where, "Uid", "User") : std::string(user);
  const std::string secret =
      password.empty() ? firstOf(where, "Pwd", "Password") : std::string(password);
  const std::optional<KeepAlive> keepAlive = keepAliveIn(where);
  const std::string given(where.value("Server"));
  const std::vector<std::string> servers =
      unreachable().last(split(given.empty() ? "127.0.0.1" : given, ','));
  for (std::size_t i = 0;; ++i) {
    try {
      MysqlHandle handle = connectTo(servers[i], where, name, secret, database, keepAlive);
      if (servers.size() > 1) requireServing(handle.get(), servers[i], database);
      return handle;
    } catch (const Error& error) {
      if (isFinal(error.cause().nativeCode)) throw;
      // The next server may answer; the last one's refusal is told.
      if (servers.size() > 1) unreachable().note(servers[i]);
      if (i + 1 == servers.size()) throw;
    }
  }
}

std::string requiredDatabase(const ConnectionString& where) {
  if (where.database().empty()) {
    raiseConnectionFailed("the connection string names no database; write Database=kt7");
  }
  return std::string(where.database());
}

/// What "SyncWait=" says: 1 lets reads wait until the node has what others committed before.
int syncWaitIn(const ConnectionString& where) {
  const std::string_view text = where.value("SyncWait");
  if (text.empty()) return 0;
  int wait = 0;
  constexpr int kMost = 15;
  if (!readPlainNumber(text, wait) || wait < 0 || wait > kMost) {
    raiseConnectionFailed("'" + std::string(text) + "' is no SyncWait; write SyncWait=1");
  }
  return wait;
}

std::string quotedName(const std::string& name) { return "`" + replaceAll(name, "`", "``") + "`"; }

}  // namespace

std::unique_ptr<Session> openMysql(const ConnectionString& where, std::string_view user,
                                   std::string_view password) {
  const int syncWait = syncWaitIn(where);
  MysqlHandle handle = connect(where, user, password, std::string(where.database()));
  auto session = std::make_unique<MysqlSession>(std::move(handle), syncWait);
  if (syncWait != 0) session->execute("SET SESSION wsrep_sync_wait=" + std::to_string(syncWait));
  return session;
}

void createMysql(const ConnectionString& where) {
  const std::string database = requiredDatabase(where);
  try {
    connect(where, {}, {}, database);
    return;
  } catch (const Error& error) {
    // Who has no right to a database is not told whether it is there.
    const std::int32_t code = error.cause().nativeCode;
    if (code != ER_BAD_DB_ERROR && code != ER_DBACCESS_DENIED_ERROR) throw;
  }
  const MysqlHandle connection = connect(where, {}, {}, {});
  const std::string collation =
      isMariadb(mysql_get_server_info(connection.get())) ? "utf8mb4_nopad_bin" : "utf8mb4_0900_bin";
  const std::string sql = "CREATE DATABASE IF NOT EXISTS " + quotedName(database) +
                          " CHARACTER SET utf8mb4 COLLATE " + collation;
  if (mysql_query(connection.get(), sql.c_str()) == 0) return;
  raiseConnectionFailed("the database '" + database +
                            "' is not there, or not for this user, and cannot be made: " +
                            mysql_error(connection.get()) + "; have an administrator run: " + sql +
                            "; GRANT ALL ON " + quotedName(database) + ".* TO this user",
                        {sql, static_cast<std::int32_t>(mysql_errno(connection.get())),
                         mysql_sqlstate(connection.get())});
}

}  // namespace kt7::data

void kt7::host::useMysql() {
  static constexpr data::Driver kDriver{.open = data::openMysql, .create = data::createMysql};
  data::addDriver("MySQL", kDriver);
  data::addDriver("MariaDB", kDriver);
}
