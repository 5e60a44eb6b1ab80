#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <kt7/date.h>
#include <kt7/host/platform.h>

namespace CLI {
class App;
}

namespace kt7::cli {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

/// The command was called in a way that it cannot obey; the text says what to do.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where a command reads and writes. Colour, indentation and progress only on a terminal, questions
/// only to a person who sits at one.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool outIsTerminal = false;
  bool errIsTerminal = false;
  bool inIsTerminal = false;
  /// What lets the person at the terminal pick records and shows messages; empty without one.
  host::Picker picker = {};
  host::HostPlatform::MessageView messageView = {};
};

/// Problems for one message: "this; that".
std::string inOneLine(const std::vector<std::string>& problems);

/// "kt7hr: text" on the error stream, in one line and printable.
void say(Console& console, const std::string& text);

/// What reading the command line leaves to do; answers the exit code. Errors leave as exceptions.
struct CommandLine {
  Console& console;
  std::function<int()> chosen;
};

/// A connection string as it was given to an option, with the password out of its PwdFile. WrongUse
/// for what is none.
std::string connectionStringOf(const std::string& given, const std::string& option);

/// --db and --now, which every subcommand takes.
struct DatabaseOptions {
  std::string database;
  std::string now;

  void addTo(CLI::App& command);
  /// The connection string, with the password out of its PwdFile. WrongUse without one.
  std::string connectionString() const;
  /// The clock to set, none where the machine's goes. WrongUse for what is no date.
  std::optional<Date> clock() const;
};

/// --user, --branch and --pick, of commands that run operations for somebody.
struct WorkplaceOptions {
  std::int32_t user = 0;
  std::string branch;
  std::optional<std::vector<std::string>> pick;

  void addTo(CLI::App& command);
};

struct SessionOptions;
/// What a session needs to know; its messages go to the console's error stream.
SessionOptions sessionOptions(const DatabaseOptions& database, const WorkplaceOptions& workplace,
                              Console& console);

/// A subcommand with an example below its help.
CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& does,
                     const std::string& example);

// One function a subcommand: declares it and, when it is chosen, sets CommandLine::chosen.
void addInit(CLI::App& app, CommandLine& line);
void addCopy(CLI::App& app, CommandLine& line);
void addImport(CLI::App& app, CommandLine& line);
void addPayroll(CLI::App& app, CommandLine& line);
void addCall(CLI::App& app, CommandLine& line);
void addRpc(CLI::App& app, CommandLine& line);
void addSetting(CLI::App& app, CommandLine& line);
void addUser(CLI::App& app, CommandLine& line);
void addEmployee(CLI::App& app, CommandLine& line);
void addOperations(CLI::App& app, CommandLine& line);

}  // namespace kt7::cli
