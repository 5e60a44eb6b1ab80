#include "support/company.h"

#include <stdlib.h>

#include <gtest/gtest.h>

#include "collab/opened.h"

namespace kt7::test {

TemporaryDatabase::TemporaryDatabase() {
  std::string pattern = (std::filesystem::temp_directory_path() / "kt7-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  folder_ = pattern;
  connectionString_ = "Driver=SQLite;Database=" + file().string();
}

TemporaryDatabase::~TemporaryDatabase() { std::filesystem::remove_all(folder_); }

namespace {

/// The tables are made once and copied for every company.
const std::filesystem::path& emptyCompany() {
  static const TemporaryDatabase database;
  static const bool made = [] {
    host::HostPlatform platform;
    data::createDatabase(database.connectionString());
    OwnConnection connection(platform, database.connectionString());
    schema::createSchema(*connection, schema::Engine::SQLite);
    OpenRecordset checkpoint(platform, "PRAGMA wal_checkpoint(TRUNCATE)", *connection);
    return true;
  }();
  static const std::filesystem::path file = made ? database.file() : std::filesystem::path();
  return file;
}

}  // namespace

Company::Company(const char* now)
    : host_(Date::fromIsoText(now)), hostData_(database_.connectionString()) {
  std::filesystem::copy_file(emptyCompany(), database_.file());
  host_.setMessageView([this](const std::string& text) { messages_.push_back(text); });
  hostData_.OpenConnection();
}

void Company::run(const std::string& sql) {
  OwnConnection connection(host_, connectionString());
  connection->Execute(sql);
  connection.close();
}

std::vector<std::string> Company::rows(const std::string& sql) {
  OwnConnection connection(host_, connectionString());
  OpenRecordset result(host_, "SELECT " + sql, *connection);
  std::vector<std::string> lines;
  for (; !result->Eof(); result->MoveNext()) {
    const Value line = result->get("line");
    lines.push_back(line.isNull() ? "-" : line.toText());
  }
  return lines;
}

}  // namespace kt7::test
