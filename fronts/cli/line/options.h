#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <kt7/date.h>
#include "fronts/cli/line/console.h"

namespace CLI {
class App;
}

namespace kt7::cli {

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

/// A subcommand with an example below its help.
CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& does,
                     const std::string& example);

}  // namespace kt7::cli
