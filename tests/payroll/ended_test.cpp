// What ends the process, or takes the file away, in the middle of a run: the register says so, what
// it shows is paid, and the month that is run again is as one that nothing happened to.
#include <sys/resource.h>
#include <sys/wait.h>

#include <array>
#include <csignal>
#include <fstream>
#include <random>
#include <thread>

#include "fronts/cli/commands/run.h"
#include "fronts/cli/line/signals.h"
#include "host/data/session/pool.h"
#include "paid_company.h"

namespace kt7::payroll {

namespace {

namespace fs = std::filesystem;

class EndedRun : public PaidCompany {
 protected:
  struct Ended {
    int status;
    std::string out;
    std::string err;
    bool complete() const { return out.find("\nTotal, ") != std::string::npos; }
    bool saysNotComplete() const { return out.find("\nNot complete: ") != std::string::npos; }
  };

  void SetUp() override {
    if (!test::engine().embedded) GTEST_SKIP() << "the database is a file that is moved and copied";
    hire(150);
    pay(1);
    expected_ = books();
    forgetTheMonth();
  }

  /// The run in a process of its own, to which `meanwhile` happens.
  Ended run(const std::vector<const char*>& options, const std::function<void()>& prepare,
            const std::function<void(pid_t child)>& meanwhile) {
    const fs::path out = database_.folder() / "out.txt", err = database_.folder() / "err.txt";
    leaveFile();
    const pid_t child = fork();
    if (child == 0) _exit(payInChild(options, prepare, out, err));
    meanwhile(child);
    int status = 0;
    waitpid(child, &status, 0);
    return {status, textOf(out), textOf(err)};
  }
  void expectWholeAfterRerun() {
    EXPECT_EQ(pay(1).outcome.failed, 0);
    EXPECT_EQ(books(), expected_);
  }
  void untilSomebodyIsPaid() {
    while (count("KT7TEmpSlipDoc") == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    leaveFile();
  }
  /// The engine's connections survive neither a fork nor another file of the name.
  void leaveFile() { data::dropIdleSessions(database_.connectionString()); }

  std::vector<std::string> expected_;

 private:
  int payInChild(const std::vector<const char*>& options, const std::function<void()>& prepare,
                 const fs::path& out, const fs::path& err) {
    prepare();
    std::ofstream output(out), errors(err);
    std::istringstream input;
    cli::Console console{input, output, errors};
    std::vector<const char*> words{"kt7hr",   "payroll", "--month",
                                   "2026-01", "--db",    database_.connectionString().c_str()};
    words.insert(words.end(), options.begin(), options.end());
    return cli::run(static_cast<int>(words.size()), words.data(), console);
  }
  static std::string textOf(const fs::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
  }
};

TEST_F(EndedRun, SignalAtAnyMomentIsToldAndLosesNothing) {
  std::minstd_rand random(4711);
  int interrupted = 0;
  for (int i = 0; i < 8; ++i) {
    const int number = std::array{SIGTERM, SIGINT, SIGHUP}[i * 2 % 3];
    const std::vector<std::vector<const char*>> ways{{}, {"--jobs", "3"}, {"--share"}};
    SCOPED_TRACE(std::to_string(i));
    const Ended ended = run(
        ways[i % 3], [] {},
        [&](pid_t child) {
          if (i >= 4) untilSomebodyIsPaid();
          std::this_thread::sleep_for(std::chrono::milliseconds(20 + random() % 200));
          kill(child, number);
        });
    if (WIFEXITED(ended.status) && WEXITSTATUS(ended.status) == 128 + number) {
      ++interrupted;
      EXPECT_EQ(ended.saysNotComplete(), ended.out.find("E0") != std::string::npos);
      EXPECT_NE(ended.err.find("run the month again"), std::string::npos) << ended.err;
    } else if (WIFEXITED(ended.status)) {
      EXPECT_EQ(WEXITSTATUS(ended.status), 0);
      EXPECT_TRUE(ended.complete());
    } else {
      EXPECT_TRUE(ended.out.empty() || ended.complete()) << "before or after the run";
    }
    sql("DELETE FROM KT7TRunLease");
    expectWholeAfterRerun();
    forgetTheMonth();
  }
  EXPECT_GT(interrupted, 0);
}

TEST_F(EndedRun, SecondSignalEndsItAtOnce) {
  const Ended ended = run(
      {}, [] {},
      [&](pid_t child) {
        untilSomebodyIsPaid();
        // Both have come when it goes on.
        kill(child, SIGSTOP);
        kill(child, SIGTERM);
        kill(child, SIGINT);
        kill(child, SIGCONT);
      });
  EXPECT_TRUE(WIFSIGNALED(ended.status));
  EXPECT_FALSE(ended.complete());
  expectWholeAfterRerun();
}

TEST_F(EndedRun, FileThatMayNotGrowIsToldAsAFullDisk) {
  const auto size = static_cast<rlim_t>(fs::file_size(database_.file()));
  const Ended ended = run(
      {},
      [&] {
        cli::ignoreFileSizeLimit();
        const rlimit limit{size + 4096, size + 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
      },
      [](pid_t) {});
  ASSERT_TRUE(WIFEXITED(ended.status));
  EXPECT_EQ(WEXITSTATUS(ended.status), 1);
  EXPECT_NE(ended.err.find("the database file may not grow"), std::string::npos) << ended.err;
  expectWholeAfterRerun();
}

TEST_F(EndedRun, FileThatIsTakenAwayIsToldAndTheNextOneIsUnharmed) {
  const fs::path file = database_.file(), other = database_.folder() / "other.db",
                 away = database_.folder() / "away.db", prepared = database_.folder() / "kept.db";
  const auto copyTo = [&](const fs::path& target) { sql("VACUUM INTO '" + target.string() + "'"); };
  copyTo(prepared);
  sql("UPDATE KT7TEmployee SET TEmpLastName='of the other file'");
  copyTo(other);
  sql("UPDATE KT7TEmployee SET TEmpLastName=NULL");
  struct Case {
    const char* name;
    std::vector<const char*> options;
    std::function<void()> taken;
    bool next;  // there is a file of the name again
  };
  for (const Case& row : std::vector<Case>{{"moved", {}, [&] { fs::rename(file, away); }, false},
                                           {"deleted", {}, [&] { fs::remove(file); }, false},
                                           {"replaced", {}, [&] { fs::rename(other, file); }, true},
                                           {"moved and replaced",
                                            {"--jobs", "2"},
                                            [&] {
                                              fs::rename(file, away);
                                              fs::copy_file(prepared, file);
                                            },
                                            true}}) {
    SCOPED_TRACE(row.name);
    const Ended ended = run(
        row.options, [] {},
        [&](pid_t) {
          untilSomebodyIsPaid();
          row.taken();
        });
    ASSERT_TRUE(WIFEXITED(ended.status));
    EXPECT_EQ(WEXITSTATUS(ended.status), 1);
    EXPECT_TRUE(ended.saysNotComplete() || ended.out.empty()) << ended.out;
    EXPECT_NE(ended.err.find("moved, replaced or deleted"), std::string::npos) << ended.err;
    if (row.next) {
      EXPECT_EQ(lines("SELECT integrity_check AS line FROM pragma_integrity_check"),
                std::vector<std::string>{"ok"});
      EXPECT_EQ(count("KT7TEmpSlipDoc"), 0);
    }
    leaveFile();
    if (fs::exists(away)) {
      fs::rename(away, file);
      EXPECT_GT(count("KT7TEmpSlipDoc"), 0) << "what was kept is in the file that was moved";
    } else if (!row.next) {
      fs::copy_file(prepared, file);
    }
    expectWholeAfterRerun();
    forgetTheMonth();
  }
}

}  // namespace

}  // namespace kt7::payroll
