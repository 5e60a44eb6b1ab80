#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <kt7/engine.h>

namespace kt7::data {

/// "keyword=value;..." taken apart. Keywords are found without regard to letter case; a value may
/// stand in braces, in which "}}" is a brace.
class ConnectionString {
 public:
  /// A connection error for a part without "=".
  explicit ConnectionString(std::string_view text);

  /// "" where the keyword is missing; the first one counts.
  std::string_view value(std::string_view keyword) const;
  std::string_view driver() const { return value("Driver"); }
  std::string_view database() const { return value("Database"); }

  /// A connection error for a keyword that the driver of that engine does not know; it names the
  /// nearest one that it does, and never a part of what may be a password.
  void requireKnownKeywords(Engine engine) const;

  /// The text as it was given, without the first part of that keyword and value.
  std::string textWithout(std::string_view keyword, std::string_view value) const;
  /// The text again; values show only of keywords that are known to hold no secret.
  std::string shown() const;

 private:
  std::string text_;
  std::vector<std::pair<std::string, std::string>> parts_;
};

/// The connection string without its password, for messages.
std::string shownConnectionString(const std::string& connectionString);

}  // namespace kt7::data
