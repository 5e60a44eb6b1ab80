#include "support/engine.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>

#include <kt7/error.h>
#include "base/text.h"
#include "host/data/built_in/drivers.h"
#include "host/data/contract/database.h"
#include "host/data/session/pool.h"

namespace kt7::test {

const Engine& embeddedEngine() {
  static const Engine instance{.kind = "SQLITE", .server = "Driver=SQLite"};
  return instance;
}

namespace {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

[[maybe_unused]] const bool kDriversKnown = (data::useBuiltInDrivers(), true);

Engine readEngine() {
  Engine engine;
  engine.server = environment("KT7_TEST_DB");
  if (engine.server.empty()) return embeddedEngine();
  engine.embedded = false;
  engine.maker = environment("KT7_TEST_MAKER");
  if (engine.maker.empty()) engine.maker = engine.server;
  engine.odbc = engine.maker != engine.server;
  engine.kind = data::databaseType(engine.maker);
  engine.files = engine.kind == "SQLITE";
  engine.templates = engine.kind == "POSTGRESQL";
  engine.exactDecimals = !engine.files;
  return engine;
}

void runByMaker(const Engine& on, const std::string& sql) {
  const auto connection = data::createConnection();
  connection->Open(on.maker + (on.templates ? ";Database=postgres" : ""));
  connection->Execute(sql);
}

std::string freshName() {
  static int count = 0;
  return "kt7_" + std::to_string(::getpid()) + "_" + std::to_string(++count);
}

/// Nobody may be connected to a database that is copied.
void copyTemplate(const Engine& on, const std::string& from, const std::string& to) {
  runByMaker(
      on, "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '" + from + "'");
  runByMaker(on, "CREATE DATABASE " + to + " TEMPLATE " + from);
}

using Originals = std::map<std::string, std::unique_ptr<TemporaryDatabase>>;

Originals& originals() {
  static Originals instance;
  return instance;
}

/// Drops them while the client libraries still work.
struct DropOriginals : testing::Environment {
  void TearDown() override { originals().clear(); }
};
[[maybe_unused]] const auto* const kDropOriginals =
    testing::AddGlobalTestEnvironment(new DropOriginals);

}  // namespace

const Engine& engine() {
  static const Engine instance = readEngine();
  return instance;
}

std::string asText(const std::string& column) {
  return "CAST(" + column + " AS " + (engine().kind == "MYSQL" ? "CHAR" : "TEXT") + ")";
}

std::string plainNumbers(const std::string& line) {
  std::string plain;
  for (std::size_t at = 0; at < line.size();) {
    const std::size_t end = std::min(line.find_first_not_of("-0123456789.", at), line.size());
    std::string word = line.substr(at, end - at);
    if (const std::size_t point = word.find('.');
        point != std::string::npos && word.find('.', point + 1) == std::string::npos) {
      word.erase(word.find_last_not_of('0') + 1);
      if (word.back() == '.') word.pop_back();
    }
    plain += word;
    const std::size_t next = std::min(line.find_first_of("-0123456789.", end), line.size());
    plain.append(line, end, next - end);
    at = next;
  }
  return plain;
}

TemporaryDatabase::TemporaryDatabase(const Engine& on) : on_(on), name_(freshName()) {
  std::string pattern = (std::filesystem::temp_directory_path() / "kt7-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  folder_ = pattern;
  if (on_.files) name_ = file().string();
  connectionString_ = on_.server + ";Database=" + name_;
}

TemporaryDatabase::~TemporaryDatabase() {
  data::dropIdleSessions(connectionString_);
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
  if (on_.files) return;
  try {
    runByMaker(on_, "DROP DATABASE IF EXISTS " + name_ + (on_.templates ? " WITH (FORCE)" : ""));
  } catch (const Error&) {
    // The server goes with its folder after the tests.
  }
}

std::string TemporaryDatabase::makerString(const std::string& database) const {
  return (on_.files ? "Driver=SQLite" : on_.maker) + ";Database=" + database;
}

void TemporaryDatabase::endConnections() const {
  const auto connection = data::createConnection();
  connection->Open(makerString(name_));
  const auto rows = data::createRecordset();
  rows->Open(on_.templates
                 ? "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname = "
                   "current_database() AND pid <> pg_backend_pid()"
                 : "SELECT id FROM information_schema.processlist WHERE db = DATABASE() AND id <> "
                   "CONNECTION_ID()",
             *connection, ado::kStatic, ado::kReadOnly);
  if (on_.templates) return;
  for (; !rows->Eof(); rows->MoveNext()) {
    connection->Execute("KILL " + rows->get("id").joinedText());
  }
}

void TemporaryDatabase::make() const { data::createDatabase(makerString(name_)); }

void TemporaryDatabase::make(
    const std::string& content,
    const std::function<void(const std::string& connectionString)>& fill) const {
  if (!on_.files && !on_.templates) {
    make();
    fill(connectionString_);
    return;
  }
  std::unique_ptr<TemporaryDatabase>& original = originals()[content + on_.server];
  if (original == nullptr) {
    original = std::make_unique<TemporaryDatabase>(on_);
    original->make();
    fill(original->connectionString());
    if (on_.files) {
      const auto connection = data::createConnection();
      connection->Open(makerString(original->name_));
      const auto rows = data::createRecordset();
      rows->Open("PRAGMA wal_checkpoint(TRUNCATE)", *connection, ado::kStatic, ado::kReadOnly);
    }
  }
  if (on_.files) {
    std::filesystem::copy_file(original->file(), file());
  } else {
    copyTemplate(on_, original->name_, name_);
  }
}

}  // namespace kt7::test
