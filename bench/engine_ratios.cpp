// Keyed reads, new rows and edits through the data-access contract against the client library used
// by hand, on every engine whose connection string the arguments or the environment give.
#include <cstdio>
#include <cstdlib>

#include "by_hand.h"
#include "host/data/database.h"
#include "ratio_report.h"
#include "sample_company.h"

namespace kt7::bench {

namespace {

constexpr int kEmployees = 10000;

/// An engine, a company on it, and what a program by hand may cost there at most.
struct Bench {
  std::string name;
  double allowedRatio;
  RatioReport::Clock clock;
  std::unique_ptr<SampleCompany> company;
  std::unique_ptr<ByHand> byHand;
  std::unique_ptr<ado::Connection> connection = data::createConnection();
};

/// In lower case, as tables are kept where an engine tells the cases apart.
std::string readText(int number) {
  return "SELECT * FROM kt7temployee WHERE TEmpCode='" + employeeCode(number) + "'";
}

/// Another employee each time, far from the last one.
class Turns {
 public:
  int next() { return turn_ = (turn_ + 7919) % kEmployees, turn_ + 1; }

 private:
  int turn_ = 0;
};

void readByHand(benchmark::State& state, const Bench& bench) {
  Turns turns;
  std::vector<std::string> cells;
  for (auto _ : state) {
    bench.byHand->readRow(readText(turns.next()), cells);
    benchmark::DoNotOptimize(cells.data());
  }
}

void readByContract(benchmark::State& state, const Bench& bench) {
  Turns turns;
  const auto rows = data::createRecordset();
  for (auto _ : state) {
    rows->Open(readText(turns.next()), *bench.connection, ado::kStatic, ado::kReadOnly);
    benchmark::DoNotOptimize(rows->get("TEmpFirstName").joinedText());
    benchmark::DoNotOptimize(rows->get("TEmpSalary").toCurrency());
    benchmark::DoNotOptimize(rows->get("TEmpSignDate").toDate());
    rows->Close();
  }
}

void addByHand(benchmark::State& state, const Bench& bench) {
  int number = kEmployees;
  bench.byHand->execute("BEGIN");
  for (auto _ : state) {
    ++number;
    bench.byHand->execute(
        "INSERT INTO kt7temployee(TEmpCode,TEmpFirstName,TEmpLastName,TEmpSignDate,TEmpTEmTCode,"
        "TEmpSalary) VALUES('" +
        employeeCode(number) + "','Somchai','Jaidee','2020-01-01','M',20000.00)");
  }
  bench.byHand->execute("ROLLBACK");
}

void addByContract(benchmark::State& state, const Bench& bench) {
  int number = kEmployees;
  const auto rows = data::createRecordset();
  bench.connection->BeginTrans();
  // Opened again now and then, as an import does: a recordset keeps the rows that it added.
  constexpr int kRowsPerRecordset = 200;
  for (auto _ : state) {
    if (number % kRowsPerRecordset == 0) {
      if (number > kEmployees) rows->Close();
      rows->Open("SELECT * FROM KT7TEmployee WHERE 1 = 0", *bench.connection, ado::kStatic,
                 ado::kOptimistic);
    }
    ++number;
    rows->AddNew();
    rows->set("TEmpCode", employeeCode(number));
    rows->set("TEmpFirstName", "Somchai");
    rows->set("TEmpLastName", "Jaidee");
    rows->set("TEmpSignDate", Date::fromYmd(2020, 1, 1));
    rows->set("TEmpTEmTCode", "M");
    rows->set("TEmpSalary", Currency::fromWhole(20000));
    rows->Update();
  }
  rows->Close();
  bench.connection->RollbackTrans();
}

void editByHand(benchmark::State& state, const Bench& bench) {
  Turns turns;
  std::vector<std::string> cells;
  int salary = 30000;
  bench.byHand->execute("BEGIN");
  for (auto _ : state) {
    bench.byHand->readRow(readText(turns.next()), cells);
    bench.byHand->execute("UPDATE kt7temployee SET TEmpSalary=" + std::to_string(++salary) +
                          " WHERE TEmpRowID=" + cells.front());
  }
  bench.byHand->execute("ROLLBACK");
}

void editByContract(benchmark::State& state, const Bench& bench) {
  Turns turns;
  int salary = 30000;
  const auto rows = data::createRecordset();
  bench.connection->BeginTrans();
  for (auto _ : state) {
    rows->Open(readText(turns.next()), *bench.connection, ado::kStatic, ado::kOptimistic);
    rows->set("TEmpSalary", Currency::fromWhole(++salary));
    rows->Update();
    rows->Close();
  }
  bench.connection->RollbackTrans();
}

using Work = void (*)(benchmark::State&, const Bench&);

struct Question {
  const char* name;
  Work byHand;
  Work byContract;
};

constexpr Question kQuestions[] = {
    {"keyed read", readByHand, readByContract},
    {"new row", addByHand, addByContract},
    {"edit", editByHand, editByContract},
};

constexpr const char* kByHand = " by hand";
constexpr const char* kByContract = " by contract";

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

Bench benchOf(std::string name, const std::string& server, double allowedRatio) {
  Bench bench{std::move(name), allowedRatio, RatioReport::Clock::Wall,
              std::make_unique<SampleCompany>(server), nullptr};
  bench.company->addEmployees(kEmployees);
  bench.connection->Open(bench.company->connectionString());
  return bench;
}

/// SQLite always; the servers where the variables of scripts/servers say that they are up.
std::vector<Bench> benches() {
  constexpr double kUnprepared = 0.6;
  constexpr double kServer = 1.1;
  std::vector<Bench> result;
  result.push_back(benchOf("SQLite", "Driver=SQLite", kUnprepared));
  // Nothing waits there: processor time, which other programs of the machine leave alone.
  result.back().clock = RatioReport::Clock::Processor;
  result.back().byHand = sqliteByHand(result.back().company->database());
  if (const std::string server = environment("KT7_TEST_MYSQL"); !server.empty()) {
    result.push_back(benchOf("MariaDB", server, kServer));
    result.back().byHand = mysqlByHand(server, result.back().company->database());
  }
  if (const std::string server = environment("KT7_TEST_POSTGRESQL"); !server.empty()) {
    result.push_back(benchOf("PostgreSQL", server, kServer));
    result.back().byHand = postgresqlByHand(server, result.back().company->database());
  }
  return result;
}

void add(const std::string& name, Work work, const Bench& bench) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [work, &bench](benchmark::State& state) { work(state, bench); })
      ->Repetitions(45)
      ->Unit(benchmark::kMicrosecond)
      ->UseRealTime()
      ->MinTime(0.02);
}

}  // namespace

int run(int argc, char** argv) {
  if (!initialize(argc, argv)) return 1;
  const std::vector<Bench> all = benches();
  for (const Bench& bench : all) {
    for (const Question& question : kQuestions) {
      const std::string name = bench.name + ' ' + question.name;
      add(name + kByHand, question.byHand, bench);
      add(name + kByContract, question.byContract, bench);
    }
  }
  RatioReport report;
  benchmark::RunSpecifiedBenchmarks(&report);
  std::printf("\n%-12s %-12s %10s %10s\n", "engine", "", "ratio", "wanted");
  for (const Bench& bench : all) {
    for (const Question& question : kQuestions) {
      const std::string name = bench.name + ' ' + question.name;
      std::printf("%-12s %-12s %10.2f %7s%.1f\n", bench.name.c_str(), question.name,
                  report.ratio(name + kByContract, name + kByHand, bench.clock),
                  "<= ", bench.allowedRatio);
    }
  }
  return 0;
}

}  // namespace kt7::bench

int main(int argc, char** argv) { return kt7::bench::run(argc, argv); }
