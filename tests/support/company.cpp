#include "support/company.h"

namespace kt7::test {

namespace {

void makeTables(const std::string& connectionString, bool withSample) {
  const auto connection = data::createConnection();
  connection->Open(connectionString);
  schema::createSchema(*connection, engineOf(data::databaseType(connectionString)));
  if (withSample) schema::loadSample(*connection);
}

}  // namespace

void makeEmptyCompany(const TemporaryDatabase& database) {
  database.make("empty", [](const std::string& made) { makeTables(made, false); });
}

void makeSampleCompany(const TemporaryDatabase& database) {
  database.make("sample", [](const std::string& made) { makeTables(made, true); });
}

Company::Company(const char* now)
    : host_(Date::fromIsoText(now)), hostData_(database_.connectionString()) {
  makeEmptyCompany(database_);
  host_.setMessageView([this](const std::string& text) { messages_.push_back(text); });
  hostData_.OpenConnection();
}

void execute(const std::string& connectionString, const std::string& sql) {
  const auto connection = data::createConnection();
  connection->Open(connectionString);
  connection->Execute(sql);
  connection->Close();
}

std::vector<std::string> linesOf(const std::string& connectionString, const std::string& query) {
  const auto connection = data::createConnection();
  connection->Open(connectionString);
  const auto rows = data::createRecordset();
  rows->Open(query, *connection, ado::kStatic, ado::kReadOnly);
  std::vector<std::string> lines;
  for (; !rows->Eof(); rows->MoveNext()) {
    const Value line = rows->get("line");
    lines.push_back(line.isNull() ? "-" : plainNumbers(line.toText()));
  }
  return lines;
}

void Company::run(const std::string& sql) { execute(connectionString(), sql); }

std::vector<std::string> Company::rows(const std::string& sql) {
  return linesOf(connectionString(), "SELECT " + sql);
}

}  // namespace kt7::test
