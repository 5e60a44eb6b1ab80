#include "host/data/session/connection_string.h"

#include <algorithm>

#include <kt7/error.h>
#include "base/text.h"
#include "host/data/contract/database.h"

namespace kt7::data {

namespace {

bool isPassword(std::string_view keyword) {
  return equalNoCase(keyword, "Pwd") || equalNoCase(keyword, "Password");
}

/// The value at the front of `rest`, which is moved past it and its semicolon.
std::string takeValue(std::string_view& rest) {
  std::string value;
  const std::size_t start = rest.find_first_not_of(' ');
  if (start != std::string_view::npos && rest[start] == '{') {
    std::size_t at = start + 1;
    for (; at < rest.size(); ++at) {
      if (rest[at] != '}') {
        value += rest[at];
      } else if (at + 1 < rest.size() && rest[at + 1] == '}') {
        value += rest[at++];
      } else {
        break;
      }
    }
    const std::size_t end = rest.find(';', std::min(at, rest.size()));
    rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    return value;
  }
  const std::size_t end = rest.find(';');
  value = trimmedBlanks(rest.substr(0, end));
  rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
  return value;
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

std::string ConnectionString::textWithout(std::string_view keyword, std::string_view value) const {
  std::string_view rest = text_;
  while (!rest.empty()) {
    const std::size_t begin = text_.size() - rest.size();
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
    text.append(name).append("=").append(isPassword(name) ? "***" : value);
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
