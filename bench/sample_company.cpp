#include "sample_company.h"

#include <cstdio>
#include <random>

#include <kt7/error.h>
#include "host/data/contract/database.h"
#include "host/data/session/pool.h"
#include "host/schema/state/schema.h"

namespace kt7::bench {

std::string employeeCode(int number) {
  const std::string digits = std::to_string(number);
  return "B" + std::string(6 - digits.size(), '0') + digits;
}

SampleCompany::SampleCompany(std::string server) : server_(std::move(server)) {
  const std::string name = "kt7_bench_" + std::to_string(std::random_device{}());
  const Engine engine = engineOf(data::databaseType(server_));
  if (engine == Engine::Sqlite) {
    folder_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directory(folder_);
    database_ = (folder_ / "company.db").string();
  } else {
    database_ = name;
  }
  data::createDatabase(connectionString());
  const auto connection = data::createConnection();
  connection->Open(connectionString());
  schema::createSchema(*connection, engine);
  schema::loadSample(*connection);
}

SampleCompany::~SampleCompany() {
  data::dropIdleSessions(connectionString());
  try {
    if (folder_.empty()) {
      const bool postgresql = engineOf(data::databaseType(server_)) == Engine::PostgreSql;
      const auto connection = data::createConnection();
      connection->Open(server_ + (postgresql ? ";Database=postgres" : ""));
      connection->Execute("DROP DATABASE " + database_ + (postgresql ? " WITH (FORCE)" : ""));
    } else {
      std::filesystem::remove_all(folder_);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s is left behind: %s\n", database_.c_str(), error.what());
  }
}

void SampleCompany::addEmployees(int count) const {
  const auto connection = data::createConnection();
  connection->Open(connectionString());
  const auto rows = data::createRecordset();
  connection->BeginTrans();
  rows->Open("SELECT * FROM KT7TEmployee WHERE 1 = 0", *connection, ado::kStatic, ado::kOptimistic);
  for (int i = 1; i <= count; ++i) {
    rows->AddNew();
    rows->set("TEmpCode", employeeCode(i));
    rows->set("TEmpFirstName", "Somchai " + std::to_string(i));
    rows->set("TEmpLastName", "Jaidee");
    rows->set("TEmpSignDate", Date::fromYmd(2020, 1, 1 + i % 28));
    rows->set("TEmpTEmTCode", "M");
    rows->set("TEmpSalary", Currency::fromWhole(20000 + i % 1000));
    rows->Update();
  }
  connection->CommitTrans();
}

}  // namespace kt7::bench
