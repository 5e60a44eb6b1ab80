// Keyed reads, new rows and edits through the data-access contract against the client library used
// by hand, on every engine whose connection string the environment gives. Both sides take turns
// every few hundredths of a second, and a benchmark's result is the median of the turns' ratios: a
// busy moment of the machine hits both, and the few turns that it hits unevenly do not count.
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>

#include "by_hand.h"
#include "host/data/contract/database.h"
#include "ratio_report.h"
#include "sample_company.h"

namespace kt7::bench {

namespace {

constexpr int kEmployees = 10000;
constexpr int kTurn = 200;     // rows
constexpr int kTurnPairs = 5;  // one after another give one ratio
constexpr int kRatios = 41;

/// An engine, a company on it, and what a program by hand may cost there at most.
struct Bench {
  std::string name;
  double allowedRatio;
  clockid_t clock;
  std::unique_ptr<SampleCompany> company;
  std::unique_ptr<ByHand> byHand;
  std::unique_ptr<ado::Connection> connection = data::createConnection();
};

double secondsOf(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// In lower case, as tables are kept where an engine tells the cases apart.
std::string readText(int number) {
  return "SELECT * FROM kt7temployee WHERE TEmpCode='" + employeeCode(number) + "'";
}

/// Another employee each time, far from the last one.
int nextEmployee() {
  static int turn = 0;
  turn = (turn + 7919) % kEmployees;
  return turn + 1;
}

int nextSalary() {
  static int salary = 30000;
  return ++salary;
}

/// What a side does in its turn.
using Turn = void (*)(const Bench&);

void readByHand(const Bench& bench) {
  std::vector<std::string> cells;
  for (int i = 0; i < kTurn; ++i) {
    bench.byHand->readRow(readText(nextEmployee()), cells);
    benchmark::DoNotOptimize(cells.data());
  }
}

void readByContract(const Bench& bench) {
  const auto rows = data::createRecordset();
  for (int i = 0; i < kTurn; ++i) {
    rows->Open(readText(nextEmployee()), *bench.connection, ado::kStatic, ado::kReadOnly);
    benchmark::DoNotOptimize(rows->get("TEmpFirstName").joinedText());
    benchmark::DoNotOptimize(rows->get("TEmpSalary").toCurrency());
    benchmark::DoNotOptimize(rows->get("TEmpSignDate").toDate());
    rows->Close();
  }
}

void addByHand(const Bench& bench) {
  for (int i = 1; i <= kTurn; ++i) {
    bench.byHand->execute(
        "INSERT INTO kt7temployee(TEmpCode,TEmpFirstName,TEmpLastName,TEmpSignDate,TEmpTEmTCode,"
        "TEmpSalary) VALUES('" +
        employeeCode(kEmployees + i) + "','Somchai','Jaidee','2020-01-01','M',20000.00)");
  }
}

void addByContract(const Bench& bench) {
  const auto rows = data::createRecordset();
  rows->Open("SELECT * FROM KT7TEmployee WHERE 1 = 0", *bench.connection, ado::kStatic,
             ado::kOptimistic);
  for (int i = 1; i <= kTurn; ++i) {
    rows->AddNew();
    rows->set("TEmpCode", employeeCode(kEmployees + i));
    rows->set("TEmpFirstName", "Somchai");
    rows->set("TEmpLastName", "Jaidee");
    rows->set("TEmpSignDate", Date::fromYmd(2020, 1, 1));
    rows->set("TEmpTEmTCode", "M");
    rows->set("TEmpSalary", Currency::fromWhole(20000));
    rows->Update();
  }
}

void editByHand(const Bench& bench) {
  std::vector<std::string> cells;
  for (int i = 0; i < kTurn; ++i) {
    bench.byHand->readRow(readText(nextEmployee()), cells);
    bench.byHand->execute("UPDATE kt7temployee SET TEmpSalary=" + std::to_string(nextSalary()) +
                          " WHERE TEmpRowID=" + cells.front());
  }
}

void editByContract(const Bench& bench) {
  const auto rows = data::createRecordset();
  for (int i = 0; i < kTurn; ++i) {
    rows->Open(readText(nextEmployee()), *bench.connection, ado::kStatic, ado::kOptimistic);
    rows->set("TEmpSalary", Currency::fromWhole(nextSalary()));
    rows->Update();
    rows->Close();
  }
}

struct Question {
  const char* name;
  Turn byHand;
  Turn byContract;
};

constexpr Question kQuestions[] = {
    {"keyed read", readByHand, readByContract},
    {"new row", addByHand, addByContract},
    {"edit", editByHand, editByContract},
};

/// Seconds of a turn in a transaction of its own; its beginning and end are not counted.
double handsTurn(const Bench& bench, Turn turn) {
  bench.byHand->execute("BEGIN");
  const double begin = secondsOf(bench.clock);
  turn(bench);
  const double seconds = secondsOf(bench.clock) - begin;
  bench.byHand->execute("ROLLBACK");
  return seconds;
}

double contractsTurn(const Bench& bench, Turn turn) {
  bench.connection->BeginTrans();
  const double begin = secondsOf(bench.clock);
  turn(bench);
  const double seconds = secondsOf(bench.clock) - begin;
  bench.connection->RollbackTrans();
  return seconds;
}

void compare(benchmark::State& state, const Bench& bench, const Question& question) {
  double byHand = 0, byContract = 0;
  int rows = 0;
  bool handFirst = true;
  for (auto _ : state) {
    if (handFirst) byHand += handsTurn(bench, question.byHand);
    const double seconds = contractsTurn(bench, question.byContract);
    if (!handFirst) byHand += handsTurn(bench, question.byHand);
    handFirst = !handFirst;
    byContract += seconds;
    rows += kTurn;
    state.SetIterationTime(seconds);
  }
  constexpr double kMicroseconds = 1e6;
  state.counters["hand_us"] = byHand / rows * kMicroseconds;
  state.counters["contract_us"] = byContract / rows * kMicroseconds;
  state.counters["ratio"] = byContract / byHand;
}

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

Bench benchOf(std::string name, const std::string& server, double allowedRatio) {
  Bench bench{std::move(name), allowedRatio, CLOCK_MONOTONIC,
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
  result.back().clock = CLOCK_PROCESS_CPUTIME_ID;
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

/// The usual console report; keeps the medians of the ratios.
class Ratios : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name != "median") continue;
      medians_[run.run_name.function_name] = run.counters.at("ratio");
    }
    ConsoleReporter::ReportRuns(runs);
  }
  const std::map<std::string, double>& medians() const { return medians_; }

 private:
  std::map<std::string, double> medians_;
};

std::string nameOf(const Bench& bench, const Question& question) {
  return bench.name + ' ' + question.name;
}

void add(const Bench& bench, const Question& question) {
  benchmark::RegisterBenchmark(
      nameOf(bench, question).c_str(),
      [&bench, &question](benchmark::State& state) { compare(state, bench, question); })
      ->Iterations(kTurnPairs)
      ->Repetitions(kRatios)
      ->Unit(benchmark::kMicrosecond)
      ->UseManualTime();
}

}  // namespace

int run(int argc, char** argv) {
  if (!initialize(argc, argv)) return 1;
  const std::vector<Bench> all = benches();
  for (const Bench& bench : all) {
    for (const Question& question : kQuestions) add(bench, question);
  }
  Ratios report;
  benchmark::RunSpecifiedBenchmarks(&report);
  std::printf("\n%-12s %-12s %10s %10s\n", "engine", "", "ratio", "wanted");
  for (const Bench& bench : all) {
    for (const Question& question : kQuestions) {
      const auto median = report.medians().find(nameOf(bench, question));
      if (median == report.medians().end()) continue;
      std::printf("%-12s %-12s %10.2f %7s%.1f\n", bench.name.c_str(), question.name, median->second,
                  "<= ", bench.allowedRatio);
    }
  }
  return 0;
}

}  // namespace kt7::bench

int main(int argc, char** argv) { return kt7::bench::run(argc, argv); }
