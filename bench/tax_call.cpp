#include <benchmark/benchmark.h>

#include <cstdio>

#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/hr_object.h>
#include "host/data/contract/database.h"
#include "plain_tax_questions.h"
#include "ratio_report.h"
#include "sample_company.h"

namespace kt7::bench {

namespace {

constexpr double kAllowedRatio = 1.3;
constexpr const char* kPlain = "hand-written";
constexpr const char* kTaxCall = "CalcPTAX4";

void askPlainly(benchmark::State& state, const SampleCompany& company) {
  PlainTaxQuestions questions(company.database());
  for (auto _ : state) benchmark::DoNotOptimize(questions.ask());
}

void callTax(benchmark::State& state, const SampleCompany& company) {
  host::HostPlatform platform(Date::fromYmd(2026, 1, 31));
  host::HostDataObj dataObj(company.connectionString());
  HRObject hr(platform);
  const Date signDate = Date::fromYmd(2020, 1, 1);
  const Date payDate = Date::fromYmd(2026, 1, 31);
  for (auto _ : state) {
    int16_t months = 12;
    Currency reduce = Currency::fromWhole(60000), study, donation, waive;
    bool fixToTen = false;
    benchmark::DoNotOptimize(hr.CalcPTAX4(dataObj, Currency::fromWhole(50000), Currency(), signDate,
                                          0, 0, months, reduce, Currency(), study, donation, waive,
                                          Currency::fromWhole(50000), fixToTen, payDate,
                                          Currency::fromWhole(875)));
  }
}

void openAndClose(benchmark::State& state, const SampleCompany& company) {
  const std::string connectionString = company.connectionString();
  const auto connection = data::createConnection();
  for (auto _ : state) {
    connection->Open(connectionString);
    connection->Close();
  }
}

void askByKey(benchmark::State& state, const SampleCompany& company) {
  const auto connection = data::createConnection();
  connection->Open(company.connectionString());
  const auto rows = data::createRecordset();
  int employee = 0;
  for (auto _ : state) {
    rows->Open(
        "SELECT * FROM KT7TEmployee WHERE TEmpCode='E" + std::to_string(++employee % 1000) + "'",
        *connection, ado::kStatic, ado::kReadOnly);
    benchmark::DoNotOptimize(rows->Eof());
    rows->Close();
  }
}

}  // namespace

int run(int argc, char** argv) {
  if (!initialize(argc, argv)) return 1;
  const SampleCompany company;
  const auto add = [&company](const char* name, auto function) {
    benchmark::RegisterBenchmark(
        name, [&company, function](benchmark::State& state) { function(state, company); })
        ->Repetitions(9)
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.1);
  };
  add(kPlain, askPlainly);
  add(kTaxCall, callTax);
  add("Open and Close", openAndClose);
  add("SELECT by a new key", askByKey);
  RatioReport report;
  benchmark::RunSpecifiedBenchmarks(&report);
  const double ratio = report.ratio(kTaxCall, kPlain);
  if (ratio > 0) {
    std::printf(
        "\nA tax call on a connection of its own costs %.2f times the hand-written program "
        "(at most %.1f is wanted).\n",
        ratio, kAllowedRatio);
  }
  return 0;
}

}  // namespace kt7::bench

int main(int argc, char** argv) { return kt7::bench::run(argc, argv); }
