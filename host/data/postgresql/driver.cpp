#include "host/data/postgresql/driver.h"

#include <array>

#include "base/error.h"
#include "base/text.h"
#include "host/data/postgresql/session.h"

namespace kt7::data {

namespace {

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
  const bool missing = text.find("does not exist") != std::string::npos &&
                       text.find("database") != std::string::npos;
  if (missing) text += "; run \"kt7hr init\" to create it";
  raiseConnectionFailed("cannot connect to the database '" + database + "': " + text,
                        {{}, 0, missing ? "3D000" : "08001"});
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
    if (error.cause().sqlState != "3D000") throw;
  }
  const PostgresqlHandle connection = connect(where, login, "postgres");
  const std::string sql = "CREATE DATABASE \"" + replaceAll(database, "\"", "\"\"") +
                          "\" TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'";
  const PostgresqlResult made(PQexec(connection.get(), sql.c_str()));
  if (PQresultStatus(made.get()) == PGRES_COMMAND_OK) return;
  raiseConnectionFailed("the database '" + database + "' is not there and cannot be made: " +
                            std::string(trimmedBlanks(PQerrorMessage(connection.get()))) +
                            "; have an administrator run: " + sql + " OWNER this_user",
                        {sql, 0, PQresultErrorField(made.get(), PG_DIAG_SQLSTATE)});
}

}  // namespace kt7::data
