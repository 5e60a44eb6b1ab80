#include "support/company.h"

#include "support/opened.h"

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
    lines.push_back(line.isNull() ? "-" : plainNumbers(line.toText()));
  }
  return lines;
}

}  // namespace kt7::test
