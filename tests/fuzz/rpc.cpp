#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "base/text.h"
#include "door.h"
#include "fronts/cli/commands/command.h"
#include "fronts/cli/commands/run.h"
#include "fronts/cli/rpc/rpc_messages.h"
#include "fronts/cli/rpc/session.h"

namespace kt7::fuzz {

namespace {

using cli::Json;

/// A sample company that is as it was made again after every text.
class Company {
 public:
  Company() {
    const char* const words[] = {"kt7hr", "init", "--db", connection_.c_str(), "--sample"};
    std::istringstream in;
    std::ostringstream out, err;
    cli::Console console{in, out, err};
    require(cli::run(std::size(words), words, console) == cli::kDone, "the company is made");
    sqlite3_open((folder_ / "company.db").c_str(), &file_);
    sqlite3_open(":memory:", &asMade_);
    copy(file_, asMade_);
    seen_ = version();
  }
  ~Company() {
    sqlite3_close(file_);
    sqlite3_close(asMade_);
    std::filesystem::remove_all(folder_);
  }

  const std::string& connection() const { return connection_; }
  void restore() {
    if (version() == seen_) return;
    copy(asMade_, file_);
    seen_ = version();
  }

 private:
  /// Another number whenever somebody else has written.
  int version() const {
    int number = 0;
    const auto take = [](void* into, int, char** cells, char**) {
      return *static_cast<int*>(into) = std::atoi(*cells), 0;
    };
    sqlite3_exec(file_, "PRAGMA data_version", take, &number, nullptr);
    return number;
  }
  static void copy(sqlite3* from, sqlite3* to) {
    sqlite3_backup* backup = sqlite3_backup_init(to, "main", from, "main");
    const bool done = backup != nullptr && sqlite3_backup_step(backup, -1) == SQLITE_DONE;
    require(done && sqlite3_backup_finish(backup) == SQLITE_OK, "the company is copied");
  }

  static std::filesystem::path newFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "kt7fuzz_XXXXXX").string();
    return mkdtemp(name.data());
  }
  std::filesystem::path folder_ = newFolder();
  std::string connection_ = "Driver=SQLite;Database=" + (folder_ / "company.db").string();
  sqlite3* file_ = nullptr;
  sqlite3* asMade_ = nullptr;
  int seen_ = 0;
};

bool isNotification(const Json& request) {
  if (request.is_array()) {
    return !request.empty() && std::all_of(request.begin(), request.end(), isNotification);
  }
  return request.is_object() && !request.contains("id");
}

void isAnswer(const Json& answer) {
  if (answer.is_array()) {
    require(!answer.empty(), "a batch has answers");
    for (const Json& one : answer) isAnswer(one);
    return;
  }
  require(answer.is_object() && answer.value("jsonrpc", "") == "2.0" && answer.contains("id") &&
              answer.contains("result") != answer.contains("error"),
          "an answer has a result or an error", answer.dump());
}

/// One line of JSON, or none where none is due.
void isAnswered(const std::string& line, const std::string& answer) {
  const bool blank = trimmedBlanks(line).empty();
  const Json request = Json::parse(line, nullptr, false);
  const bool silent = blank || (!request.is_discarded() && isNotification(request));
  require(!answer.empty() || silent, "a request is answered", line);
  require(answer.empty() || !blank, "nothing is not answered", answer);
  if (answer.empty()) return;
  const Json read = Json::parse(answer, nullptr, false);
  require(!read.is_discarded() && answer.find('\n') == std::string::npos,
          "an answer is a line of JSON", answer);
  isAnswer(read);
}

constexpr const char* kStillThere =
    R"({"jsonrpc":"2.0","id":7,"method":"TrimSFUNDBase","params":{"iBaseAmount":1}})";
constexpr const char* kAnswered = R"({"jsonrpc":"2.0","id":7,"result":{"value":1.0,"out":{}}})";

}  // namespace

void enter(std::string_view text) {
  static Company company;
  {
    cli::Session session({.connectionString = company.connection(),
                          .now = Date::fromYmd(2026, 1, 15),
                          .pick = std::vector<std::string>{},
                          .showMessage = [](const auto&) {}});
    cli::RpcMessages messages(session);
    for (const std::string& line : split(text, '\n')) isAnswered(line, messages.answer(line));
    require(messages.answer(kStillThere) == kAnswered, "the session goes on");
  }
  company.restore();
}

}  // namespace kt7::fuzz
