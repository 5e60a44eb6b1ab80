#include "host/data/postgresql/driver.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include <kt7/error.h>
#include <kt7/host/drivers.h>
#include "base/text.h"
#include "host/data/postgresql/guarded_login.h"
#include "host/data/postgresql/session.h"
#include "host/data/session/driver.h"
#include "host/data/session/keep_alive.h"
#include "host/data/session/loopback.h"
#include "host/data/session/missing_database.h"

namespace kt7::data {

namespace {

constexpr std::string_view kNoSuchDatabase = "3D000";

/// Sent with the connection itself. Nobody waits longer than five seconds for a lock.
constexpr const char* kSettings =
    "-c lock_timeout=5000 -c DateStyle=ISO -c standard_conforming_strings=on "
    "-c default_transaction_isolation=read\\ committed";

/// Our keyword, and the client library's for the same.
constexpr std::array<std::pair<std::string_view, const char*>, 9> kKeywords{{
    {"SslMode", "sslmode"},
    {"SslCa", "sslrootcert"},
    {"SslRootCert", "sslrootcert"},
    {"SslCert", "sslcert"},
    {"SslKey", "sslkey"},
    {"SslCrl", "sslcrl"},
    {"ChannelBinding", "channel_binding"},
    {"TargetSessionAttrs", "target_session_attrs"},
    {"ApplicationName", "application_name"},
}};

std::string firstOf(const ConnectionString& where, std::string_view one, std::string_view other) {
  return std::string(where.value(one).empty() ? where.value(other) : where.value(one));
}

std::string joined(const std::vector<std::string>& parts) {
  std::string whole;
  for (const std::string& part : parts) whole.append(&part == parts.data() ? "" : ",").append(part);
  return whole;
}

struct Login {
  std::string user;
  std::string password;
};

Login loginOf(const ConnectionString& where, std::string_view user, std::string_view password) {
  return {user.empty() ? firstOf(where, "Uid", "User") : std::string(user),
          password.empty() ? firstOf(where, "Pwd", "Password") : std::string(password)};
}

std::vector<std::pair<const char*, std::string>> keepAliveOptions(const ConnectionString& where) {
  const std::optional<KeepAlive> wanted = keepAliveIn(where);
  if (!wanted) return {};
  return {{"keepalives", "1"},
          {"keepalives_idle", std::to_string(wanted->firstQuestion)},
          {"keepalives_interval", std::to_string(wanted->nextQuestion)},
          {"keepalives_count", std::to_string(wanted->questions)},
          {"tcp_user_timeout", std::to_string(wanted->lostAfter) + "000"}};
}

/// The client library writes it before what a server says, in every language.
constexpr std::string_view kBeforeServersWords = ":  ";

/// The SQLSTATE behind a refused connection, "" where no server spoke. A connection that failed
/// tells it in no field, only in its text and only where that was asked for, which the library
/// allows from the second attempt on. The words themselves may be in any language.
std::string stateOfRefusal(PGconn* connection, bool guarded) {
  if (std::string_view(PQerrorMessage(connection)).find(kBeforeServersWords) ==
      std::string_view::npos) {
    return {};
  }
  PQsetErrorVerbosity(connection, PQERRORS_SQLSTATE);
  if (!guarded) {
    PQreset(connection);
  } else if (PQresetStart(connection) == 1 && endGuarded(connection) != LoginEnd::Told) {
    return {};
  }
  PQsetErrorVerbosity(connection, PQERRORS_DEFAULT);
  const std::string_view text = PQerrorMessage(connection);
  const std::size_t at = text.rfind(kBeforeServersWords);
  if (at == std::string_view::npos) return {};
  constexpr std::size_t kLength = 5;
  const std::string_view state = text.substr(at + kBeforeServersWords.size(), kLength);
  const bool isState = state.size() == kLength && std::ranges::all_of(state, [](char c) {
                         return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
                       });
  return isState ? std::string(state) : std::string();
}

/// What the client library takes where the connection string is silent: the environment's.
std::string librarysOwn(std::string_view keyword) {
  struct Free {
    void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
  };
  const std::unique_ptr<PQconninfoOption, Free> options(PQconndefaults());
  for (const PQconninfoOption* each = options.get(); each != nullptr && each->keyword; ++each) {
    if (each->keyword == keyword && each->val != nullptr) return each->val;
  }
  return {};
}

/// The servers to try in turn, and their ports: one for all, or each its own.
struct Servers {
  std::vector<std::string> hosts;
  std::vector<std::string> ports;

  /// Those behind the first of that name.
  void goPast(std::string_view host) {
    const auto at = std::ranges::find(hosts, host);
    const auto count = std::min(at - hosts.begin() + 1, std::ssize(hosts));
    hosts.erase(hosts.begin(), hosts.begin() + count);
    if (ports.size() > 1)
      ports.erase(ports.begin(), ports.begin() + std::min(count, std::ssize(ports)));
  }
};

Servers serversIn(const ConnectionString& where) {
  const std::string given = firstOf(where, "Socket", "Server");
  return {.hosts = split(given.empty() ? "127.0.0.1" : given, ','),
          .ports = split(where.value("Port"), ',')};
}

/// Whether the password could be read on its way, were it sent as text: neither encryption is
/// demanded nor does everything stay on this machine.
bool needsGuard(const ConnectionString& where, const Servers& servers) {
  const std::string mode =
      where.value("SslMode").empty() ? librarysOwn("sslmode") : std::string(where.value("SslMode"));
  if (mode == "require" || mode == "verify-ca" || mode == "verify-full") return false;
  const auto staysHere = [](const std::string& host) {
    return host.empty() || host.front() == '/' || host.front() == '@' || isLoopback(host);
  };
  return !librarysOwn("hostaddr").empty() || !std::ranges::all_of(servers.hosts, staysHere);
}

using Options = std::vector<std::pair<const char*, std::string>>;

Options optionsOf(const ConnectionString& where, const Login& login, const std::string& database) {
  Options given;
  for (const auto& [keyword, theirs] : kKeywords) {
    if (!where.value(keyword).empty()) given.emplace_back(theirs, where.value(keyword));
  }
  given.emplace_back("dbname", database);
  given.emplace_back("user", login.user);
  given.emplace_back("password", login.password);
  given.emplace_back("connect_timeout", "5");
  given.emplace_back("client_encoding", "UTF8");
  given.emplace_back("options", kSettings);
  for (auto& option : keepAliveOptions(where)) given.push_back(std::move(option));
  return given;
}

PGconn* begin(PGconn* (*how)(const char* const*, const char* const*, int), const Options& given,
              const Servers& servers) {
  const std::string hosts = joined(servers.hosts), ports = joined(servers.ports);
  std::vector<const char*> keywords{"host", "port"}, values{hosts.c_str(), ports.c_str()};
  for (const auto& [keyword, value] : given) {
    keywords.push_back(keyword);
    values.push_back(value.c_str());
  }
  keywords.push_back(nullptr);
  values.push_back(nullptr);
  return how(keywords.data(), values.data(), 0);
}

/// The library's own login in steps. Without its clock, which only the whole has: a server that is
/// silent for too long is left out.
PostgresqlHandle connectGuarded(const Options& given, Servers servers,
                                const std::string& database) {
  for (;;) {
    PostgresqlHandle handle(begin(PQconnectStartParams, given, servers));
    const LoginEnd end = endGuarded(handle.get());
    if (end == LoginEnd::Told) return handle;
    const std::string host = PQhost(handle.get());
    std::string cannot = "cannot connect to the database '";
    cannot.append(database).append("' at ").append(host);
    if (end == LoginEnd::AskedForText) {
      raiseConnectionFailed(
          cannot +
              ": the server asks for the password as text, and it was not sent, because others "
              "could read it; write SslMode=verify-full, or let the server ask for scram-sha-256",
          {{}, 0, "28000"});
    }
    if (end == LoginEnd::Garbled) {
      raiseConnectionFailed(cannot + ": what answers there does not speak PostgreSQL's protocol",
                            {{}, 0, "08P01"});
    }
    servers.goPast(host);
    if (servers.hosts.empty()) {
      raiseConnectionFailed(cannot + ": timeout expired", {{}, 0, "08001"});
    }
  }
}

PostgresqlHandle connect(const ConnectionString& where, const Login& login,
                         const std::string& database) {
  const Options given = optionsOf(where, login, database);
  const Servers servers = serversIn(where);
  const bool guarded = needsGuard(where, servers);
  PostgresqlHandle handle = guarded ? connectGuarded(given, servers, database)
                                    : PostgresqlHandle(begin(PQconnectdbParams, given, servers));
  if (PQstatus(handle.get()) == CONNECTION_OK) return handle;
  std::string text(trimmedBlanks(PQerrorMessage(handle.get())));
  while (!text.empty() && text.back() == '\n') text.pop_back();
  const std::string state = stateOfRefusal(handle.get(), guarded);
  if (PQstatus(handle.get()) == CONNECTION_OK) return handle;
  text = "cannot connect to the database '" + database + "': " + text;
  if (state == kNoSuchDatabase) throw MissingDatabase(text, {{}, 0, state});
  raiseConnectionFailed(text, {{}, 0, state.empty() ? "08001" : state});
}

std::string requiredDatabase(const ConnectionString& where) {
  if (where.database().empty()) {
    raiseConnectionFailed("the connection string names no database; write Database=kt7");
  }
  return std::string(where.database());
}

}  // namespace

std::unique_ptr<Session> openPostgresql(const ConnectionString& where, std::string_view user,
                                        std::string_view password) {
  return std::make_unique<PostgresqlSession>(
      connect(where, loginOf(where, user, password), requiredDatabase(where)));
}

void createPostgresql(const ConnectionString& where) {
  const std::string database = requiredDatabase(where);
  const Login login = loginOf(where, {}, {});
  try {
    connect(where, login, database);
    return;
  } catch (const Error& error) {
    if (error.cause().sqlState != kNoSuchDatabase) throw;
  }
  const PostgresqlHandle connection = connect(where, login, "postgres");
  const std::string sql = "CREATE DATABASE \"" + replaceAll(database, "\"", "\"\"") +
                          "\" TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'";
  const PostgresqlResult made(PQexec(connection.get(), sql.c_str()));
  if (PQresultStatus(made.get()) == PGRES_COMMAND_OK) return;
  raiseConnectionFailed("the database '" + database + "' is not there and cannot be made: " +
                            std::string(trimmedBlanks(PQerrorMessage(connection.get()))) +
                            "; have an administrator run: " + sql + " OWNER this_user",
                        {sql, 0, std::string(sqlStateOf(made.get()))});
}

}  // namespace kt7::data

void kt7::host::usePostgresql() {
  static constexpr data::Driver kDriver{.open = data::openPostgresql,
                                        .create = data::createPostgresql};
  data::addDriver("PostgreSQL", kDriver);
}
