#include "host/data/postgresql/driver.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include <kt7/error.h>
#include <kt7/host/drivers.h>
#include "base/text.h"
#include "host/data/postgresql/session.h"
#include "host/data/session/driver.h"
#include "host/data/session/keep_alive.h"

namespace kt7::data {

namespace {

constexpr std::string_view kNoSuchDatabase = "3D000";

/// Sent with the connection itself. Nobody waits longer than five seconds for a lock.
constexpr const char* kSettings =
    "-c lock_timeout=5000 -c DateStyle=ISO -c standard_conforming_strings=on "
    "-c default_transaction_isolation=read\\ committed";

/// Our keyword, and the client library's for the same.
constexpr std::array<std::pair<std::string_view, const char*>, 11> kKeywords{{
    {"Server", "host"},
    {"Socket", "host"},
    {"Port", "port"},
    {"SslMode", "sslmode"},
    {"SslCa", "sslrootcert"},
    {"SslRootCert", "sslrootcert"},
    {"SslCert", "sslcert"},
    {"SslKey", "sslkey"},
    {"SslCrl", "sslcrl"},
    {"TargetSessionAttrs", "target_session_attrs"},
    {"ApplicationName", "application_name"},
}};

std::string firstOf(const ConnectionString& where, std::string_view one, std::string_view other) {
  return std::string(where.value(one).empty() ? where.value(other) : where.value(one));
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
std::string stateOfRefusal(PGconn* connection) {
  if (std::string_view(PQerrorMessage(connection)).find(kBeforeServersWords) ==
      std::string_view::npos) {
    return {};
  }
  PQsetErrorVerbosity(connection, PQERRORS_SQLSTATE);
  PQreset(connection);
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

PostgresqlHandle connect(const ConnectionString& where, const Login& login,
                         const std::string& database) {
  std::vector<std::pair<const char*, std::string>> given;
  for (const auto& [keyword, theirs] : kKeywords) {
    if (!where.value(keyword).empty()) given.emplace_back(theirs, where.value(keyword));
  }
  if (where.value("Server").empty() && where.value("Socket").empty()) {
    given.emplace_back("host", "127.0.0.1");
  }
  given.emplace_back("dbname", database);
  given.emplace_back("user", login.user);
  given.emplace_back("password", login.password);
  given.emplace_back("connect_timeout", "5");
  given.emplace_back("client_encoding", "UTF8");
  given.emplace_back("options", kSettings);
  for (auto& option : keepAliveOptions(where)) given.push_back(std::move(option));
  std::vector<const char*> keywords, values;
  for (const auto& [keyword, value] : given) {
    keywords.push_back(keyword);
    values.push_back(value.c_str());
  }
  keywords.push_back(nullptr);
  values.push_back(nullptr);
  PostgresqlHandle handle(PQconnectdbParams(keywords.data(), values.data(), 0));
  if (PQstatus(handle.get()) == CONNECTION_OK) return handle;
  std::string text(trimmedBlanks(PQerrorMessage(handle.get())));
  while (!text.empty() && text.back() == '\n') text.pop_back();
  const std::string state = stateOfRefusal(handle.get());
  if (PQstatus(handle.get()) == CONNECTION_OK) return handle;
  if (state == kNoSuchDatabase) text += "; run \"kt7hr init\" to create it";
  raiseConnectionFailed("cannot connect to the database '" + database + "': " + text,
                        {{}, 0, state.empty() ? "08001" : state});
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
  static constexpr data::Driver kDriver{.open = data::openPostgresql, .create = data::createPostgresql};
  data::addDriver("PostgreSQL", kDriver);
}
