#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "fronts/calls/json_values.h"
#include "fronts/cli/commands/run.h"
#include "support/company.h"

namespace kt7::cli {

struct Outcome {
  int exitCode;
  std::string out;
  std::string err;
};

/// Runs the command in this process, without a KT7HR_DB from outside.
inline Outcome kt7hr(std::vector<std::string> words, const std::string& input = "",
                     bool errIsTerminal = false) {
  unsetenv("KT7HR_DB");
  words.insert(words.begin(), "kt7hr");
  std::vector<const char*> argv;
  argv.reserve(words.size());
  for (const std::string& word : words) argv.push_back(word.c_str());
  std::istringstream in(input);
  std::ostringstream out, err;
  Console console{in, out, err, false, errIsTerminal};
  const int exitCode = run(static_cast<int>(argv.size()), argv.data(), console);
  return {exitCode, out.str(), err.str()};
}

/// A folder of its own that goes with the test.
class Commands : public testing::Test {
 protected:
  Commands() {
    std::string name = (std::filesystem::temp_directory_path() / "kt7hr_XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~Commands() override { std::filesystem::remove_all(folder_); }

  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string database(const std::string& name = "company.db") const {
    return "Driver=SQLite;Database=" + path(name);
  }
  std::string written(const std::string& name, const std::string& text) const {
    std::ofstream(path(name)) << text;
    return path(name);
  }
  /// One that only its owner reads.
  std::string secretFile(const std::string& name, const std::string& text) const {
    std::filesystem::permissions(written(name, text), std::filesystem::perms::owner_all);
    return path(name);
  }

  std::filesystem::path folder_;
};

/// The sample company, made once; for tests that leave no row behind.
class SampleCompany : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    database_ = std::make_unique<test::TemporaryDatabase>();
    test::makeSampleCompany(*database_);
  }
  static void TearDownTestSuite() { database_.reset(); }

  static const std::string& database() { return database_->connectionString(); }

  /// The answers of one session to the lines, each as JSON.
  static std::vector<Json> rpc(const std::vector<std::string>& lines,
                               std::vector<std::string> options = {}) {
    std::string input;
    for (const std::string& line : lines) input += line + "\n";
    options.insert(options.begin(), {"rpc", "--db", database(), "--now", "2026-01-15"});
    const Outcome outcome = kt7hr(options, input);
    EXPECT_EQ(outcome.exitCode, kDone) << outcome.err;
    std::vector<Json> answers;
    std::istringstream answered(outcome.out);
    for (std::string line; std::getline(answered, line);) answers.push_back(Json::parse(line));
    return answers;
  }

  static inline std::unique_ptr<test::TemporaryDatabase> database_;
};

inline std::string request(const std::string& method, const std::string& params) {
  return R"({"jsonrpc":"2.0","id":1,"method":")" + method + R"(","params":)" + params + "}";
}

}  // namespace kt7::cli
