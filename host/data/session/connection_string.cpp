#include "host/data/session/connection_string.h"

#include <algorithm>
#include <span>

#include <kt7/error.h>
#include "base/nearest_name.h"
#include "base/text.h"

namespace kt7::data {

namespace {

enum Engines : unsigned { kSqlite = 1, kMysql = 2, kPostgresql = 4, kOthers = 8 };
constexpr unsigned kServers = kMysql | kPostgresql;
constexpr unsigned kAll = kSqlite | kServers | kOthers;

struct Keyword {
  std::string_view name;
  unsigned engines;
  bool secret = false;
};

/// Every keyword that a driver of this host reads. The driver manager's are its drivers' own: of
/// those only a few are known to hold no secret.
constexpr Keyword kKeywords[] = {
    {"Driver", kAll},
    {"Database", kAll},
    {"Server", kServers | kOthers},
    {"Port", kServers | kOthers},
    {"Socket", kServers},
    {"Uid", kAll},
    {"User", kAll},
    {"Pwd", kAll, true},
    {"Password", kAll, true},
    {"SslMode", kServers},
    {"SslCa", kServers},
    {"SslCert", kServers},
    {"SslKey", kServers},
    {"SslRootCert", kPostgresql},
    {"SslCrl", kPostgresql},
    {"ChannelBinding", kPostgresql},
    {"TargetSessionAttrs", kPostgresql},
    {"ApplicationName", kPostgresql},
    {"KeepAlive", kServers},
    {"SyncWait", kMysql},
    {"Dsn", kOthers},
};

const Keyword* known(std::string_view name) {
  const auto* const found = std::ranges::find_if(
      kKeywords, [name](const Keyword& keyword) { return equalNoCase(keyword.name, name); });
  return found == std::end(kKeywords) ? nullptr : found;
}

unsigned bitOf(Engine engine) {
  if (engine == Engine::Sqlite) return kSqlite;
  return engine == Engine::MySql ? kMysql : kPostgresql;
}

std::string listed(std::span<const std::string_view> names) {
  std::string list;
  for (const std::string_view name : names) list.append(list.empty() ? "" : ", ").append(name);
  return list;
}

/// `afterSecret`: what stands there may be the rest of a password with a semicolon.
[[noreturn]] void raiseUnknown(std::string_view name, bool afterSecret, std::string_view driver,
                               std::span<const std::string_view> names) {
  const std::string_view nearest = nearestName(name, names);
  std::string text = afterSecret ? "what stands behind the password in the connection string"
                                 : "'" + std::string(name) + "' in the connection string";
  text.append(" is no keyword of Driver=").append(driver);
  text += nearest.empty() ? "; it knows " + listed(names)
                          : " (did you mean '" + std::string(nearest) + "'?)";
  if (afterSecret) text += "; a password with a semicolon stands in braces: Pwd={...}";
  raiseConnectionFailed(text);
}

/// Where a ';' or a '}' was forgotten, a password lies in the value before it.
bool mayHoldPassword(std::string_view value) {
  const std::string lower = lowerCase(value);
  for (std::size_t at = 0; (at = lower.find('=', at)) != std::string::npos; ++at) {
    const std::string_view keyword = trimmedBlanks(std::string_view(lower).substr(0, at));
    if (keyword.ends_with("pwd") || keyword.ends_with("password")) return true;
  }
  return false;
}

/// What stands before the next semicolon, past which `rest` is moved; without the blanks around it.
std::string_view takePlain(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(';'), rest.size());
  const std::string_view taken = trimmedBlanks(rest.substr(0, end));
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return taken;
}

/// The value in the braces at the front of `rest`, which is moved past it and its semicolon. What
/// stands beside the braces could be a keyword whose value, a password even, then passes for
/// another's.
std::string takeBraced(std::string_view& rest) {
  std::string value;
  for (std::size_t at = 1; at < rest.size(); ++at) {
    value += rest[at];
    if (rest[at] != '}') continue;
    if (at + 1 < rest.size() && rest[at + 1] == '}') {
      ++at;
      continue;
    }
    rest.remove_prefix(at + 1);
    if (!takePlain(rest).empty()) {
      raiseConnectionFailed(
          "a ';' is missing in the connection string after a value in braces; a '}' in such a "
          "value is written twice");
    }
    value.pop_back();
    return value;
  }
  raiseConnectionFailed("a brace is open in the connection string; a '}' ends the value");
}

/// The value at the front of `rest`, which is moved past it and its semicolon.
std::string takeValue(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n"), rest.size()));
  if (rest.starts_with('{')) return takeBraced(rest);
  return std::string(takePlain(rest));
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) : text_(text) {
  std::string_view rest = text;
  while (!(rest = trimmedBlanks(rest)).empty()) {
    if (rest.front() == ';') {
      rest.remove_prefix(1);
      continue;
    }
    const std::size_t equals = rest.find('=');
    if (equals == std::string_view::npos || equals > rest.find(';')) {
      raiseConnectionFailed(
          "a connection string is made of keyword=value parts separated by ';', such as "
          "\"Driver=SQLite;Database=company.db\"");
    }
    std::string keyword(trimmedBlanks(rest.substr(0, equals)));
    rest.remove_prefix(equals + 1);
    parts_.emplace_back(std::move(keyword), takeValue(rest));
  }
}

std::string_view ConnectionString::value(std::string_view keyword) const {
  for (const auto& [name, value] : parts_) {
    if (equalNoCase(name, keyword)) return value;
  }
  return {};
}

void ConnectionString::requireKnownKeywords(Engine of) const {
  const unsigned engine = bitOf(of);
  bool afterSecret = false;
  for (const auto& [name, value] : parts_) {
    const Keyword* const keyword = known(name);
    if (keyword == nullptr || (keyword->engines & engine) == 0) {
      std::vector<std::string_view> names;
      for (const Keyword& each : kKeywords) {
        if ((each.engines & engine) != 0) names.push_back(each.name);
      }
      raiseUnknown(name, afterSecret, driver(), names);
    }
    afterSecret = keyword->secret;
  }
}

std::string ConnectionString::textWithout(std::string_view keyword, std::string_view value) const {
  std::string_view rest = text_;
  while (!rest.empty()) {
    const std::size_t begin = text_.size() - rest.size();
    if (rest.front() == ';' || rest.front() == ' ') {
      rest.remove_prefix(1);
      continue;
    }
    const std::size_t equals = std::min(rest.find('='), rest.size() - 1);
    const std::string_view name = trimmedBlanks(rest.substr(0, equals));
    rest.remove_prefix(equals + 1);
    if (equalNoCase(takeValue(rest), value) && equalNoCase(name, keyword)) {
      return text_.substr(0, begin).append(rest);
    }
  }
  return text_;
}

std::string ConnectionString::shown() const {
  std::string text;
  for (const auto& [name, value] : parts_) {
    if (!text.empty()) text += ';';
    const Keyword* const keyword = known(name);
    const bool shows = keyword != nullptr && !keyword->secret && !mayHoldPassword(value);
    text.append(name).append("=").append(shows ? value : "***");
  }
  return text;
}

std::string shownConnectionString(const std::string& connectionString) {
  try {
    return ConnectionString(connectionString).shown();
  } catch (const Error&) {
    return "(a connection string that cannot be read)";
  }
}

}  // namespace kt7::data
