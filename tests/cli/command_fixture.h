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

/// Which of the streams are a terminal's.
struct Terminal {
  bool in = false;
  bool out = false;
  bool err = false;
};

/// Runs the command in this process, without a KT7HR_DB from outside.
inline Outcome kt7hr(std::vector<std::string> words, std::istream& in, Terminal terminal = {}) {
  unsetenv("KT7HR_DB");
  words.insert(words.begin(), "kt7hr");
  std::vector<const char*> argv;
  argv.reserve(words.size());
  for (const std::string& word : words) argv.push_back(word.c_str());
  std::ostringstream out, err;
  Console console{in, out, err, terminal.out, terminal.err, terminal.in};
  const int exitCode = run(static_cast<int>(argv.size()), argv.data(), console);
  return {exitCode, out.str(), err.str()};
}
inline Outcome kt7hr(const std::vector<std::string>& words, const std::string& input = "",
                     Terminal terminal = {}) {
  std::istringstream in(input);
  return kt7hr(words, in, terminal);
}

inline bool says(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// A command that is refused, and what its one line says.
struct Refusal {
  std::vector<std::string> words;
  int exitCode;
  const char* hint;
};

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

  /// On the company of the test.
  Outcome ask(std::vector<std::string> words, const std::string& input = "",
              Terminal terminal = {}) const {
    words.insert(words.end(), {"--db", database()});
    return kt7hr(words, input, terminal);
  }
  std::string done(const std::vector<std::string>& words) const {
    const Outcome outcome = ask(words);
    EXPECT_EQ(outcome.exitCode, kDone) << outcome.err;
    return outcome.out;
  }
  void expectRefused(const std::vector<Refusal>& cases) const {
    for (const Refusal& row : cases) {
      const Outcome outcome = ask(row.words);
      EXPECT_EQ(outcome.exitCode, row.exitCode) << outcome.err;
      EXPECT_TRUE(says(outcome.err, row.hint)) << row.hint << ": " << outcome.err;
      EXPECT_EQ(outcome.out, "") << row.hint;
    }
  }
  void execute(const std::string& sql) const { test::execute(database(), sql); }
  std::string asked(const std::string& sql, const std::vector<std::string>& parameters = {}) const {
    return data::askOne(database(), sql, parameters).joinedText();
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
