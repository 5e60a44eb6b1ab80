#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace kt7::test {

/// The engine that the tests run on: the embedded one, or the one that KT7_TEST_DB names by a
/// connection string without its "Database=". What differs between engines is a trait here.
struct Engine {
  std::string kind;            // as databaseType answers it
  std::string server;          // the connection string without its database
  std::string maker;           // the native one by which databases are made and dropped
  bool embedded = true;        // SQLite by the driver of its own
  bool odbc = false;           // through the driver manager
  bool files = true;           // a database is a file, which can be copied
  bool templates = false;      // a database can be made as a copy of another
  bool exactDecimals = false;  // amounts are not kept as doubles
};

/// The engine under test.
const Engine& engine();
/// The embedded one, whatever is under test.
const Engine& embeddedEngine();

/// The column as a text, in the words of the engine under test.
std::string asText(const std::string& column);
/// The line with its numbers as all engines show them: 450.5000 and 450.50 as 450.5.
std::string plainNumbers(const std::string& line);

/// A database for one test, gone afterwards; nothing is made yet.
class TemporaryDatabase {
 public:
  explicit TemporaryDatabase(const Engine& on = engine());
  ~TemporaryDatabase();
  TemporaryDatabase(const TemporaryDatabase&) = delete;
  TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;

  const Engine& on() const { return on_; }
  const std::string& connectionString() const { return connectionString_; }
  /// Where the engine keeps the database in a file: that file.
  std::filesystem::path file() const { return folder_ / "company.db"; }
  /// A folder of the test's own, on every engine.
  const std::filesystem::path& folder() const { return folder_; }

  /// Ends every connection to it at the server, as a restart would. Only where there is a server.
  void endConnections() const;

  /// Makes it empty.
  void make() const;
  /// Makes it as what `fill` puts into an empty one. With the same `content` it is filled once a
  /// program and copied, where the engine can.
  void make(const std::string& content,
            const std::function<void(const std::string& connectionString)>& fill) const;

 private:
  std::string makerString(const std::string& database) const;
  const Engine& on_;
  std::filesystem::path folder_;
  std::string name_;
  std::string connectionString_;
};

}  // namespace kt7::test
