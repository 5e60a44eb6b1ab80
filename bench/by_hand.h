#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kt7::bench {

/// An engine's client library as a program without a driver layer uses it: every statement as a
/// text with its values in it, every result walked cell by cell. Failures end the program.
class ByHand {
 public:
  virtual ~ByHand() = default;
  virtual void execute(const std::string& sql) = 0;
  /// The first row's cells as texts; nulls as "".
  virtual void readRow(const std::string& sql, std::vector<std::string>& cells) = 0;
};

std::unique_ptr<ByHand> sqliteByHand(const std::string& file);
/// The last word is the database; the rest is taken from the connection string of the server.
std::unique_ptr<ByHand> mysqlByHand(const std::string& server, const std::string& database);
std::unique_ptr<ByHand> postgresqlByHand(const std::string& server, const std::string& database);

}  // namespace kt7::bench
