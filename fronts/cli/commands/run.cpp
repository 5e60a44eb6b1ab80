#include "run.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <vector>

#include <kt7/error.h>
#include "fronts/cli/line/advice.h"
#include "fronts/common/nearest_name.h"
#include "host/data/built_in/drivers.h"
#include "host/data/contract/database.h"

namespace kt7::cli {

namespace {

constexpr std::array kCommands{&addInit, &addCopy,    &addImport, &addPayroll,  &addCall,
                               &addRpc,  &addSetting, &addUser,   &addEmployee, &addOperations};

constexpr const char* kVersionText = "kt7hr " KT7HR_VERSION;

constexpr const char* kFirstSteps =
    R"(kt7hr runs payroll and personnel rules on a company's own database.

Try first:
  export KT7HR_DB='Driver=SQLite;Database=company.db'
  kt7hr init --sample              a database with a sample company
  kt7hr payroll --month 2026-01    the pay of January 2026
  kt7hr call GETDAYRATE '{"EmployeeCode":"E0001"}'

All commands: kt7hr --help
)";

constexpr const char* kExample = R"(Example:
  kt7hr init --sample --db 'Driver=SQLite;Database=company.db'

Every command that works on a company takes --db, or the variable KT7HR_DB, and each has a --help.
Exit codes: 0 done, 1 failed, 2 wrong use.)";

std::string nearestOption(const CLI::App& command, const std::string& word) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  const std::vector<std::string_view> views(names.begin(), names.end());
  return didYouMean(word.substr(0, word.find('=')), views);
}

std::vector<std::string> commandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  return names;
}

void refuseUnknownFirst(const CLI::App& app, const std::string& word) {
  if (word.starts_with('-')) {
    if (app.get_option_no_throw(word) != nullptr) return;
    throw WrongUse("no option '" + word + "' before the command" + nearestOption(app, word) +
                   "; kt7hr --help shows all");
  }
  const std::vector<std::string> names = commandNames(app);
  if (std::find(names.begin(), names.end(), word) != names.end()) return;
  const std::vector<std::string_view> views(names.begin(), names.end());
  throw WrongUse("no command '" + word + "'" + didYouMean(word, views) +
                 "; kt7hr --help shows all");
}

/// The innermost subcommand that the line named, for the hint below an error.
const CLI::App* chosenCommand(const CLI::App& app) {
  const CLI::App* chosen = &app;
  while (!chosen->get_subcommands().empty()) chosen = chosen->get_subcommands().front();
  return chosen;
}

std::string fullName(const CLI::App* command) {
  const std::string& own = command->get_name();
  return command->get_parent() == nullptr ? own : fullName(command->get_parent()) + " " + own;
}

int explain(const CLI::App& app, const CLI::ParseError& error, Console& console) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    return app.exit(error, console.out, console.err);
  }
  const CLI::App* command = chosenCommand(app);
  const std::string text = error.what();
  const std::size_t option = text.rfind("--");
  const bool unknown = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
  const std::string word =
      option != std::string::npos ? text.substr(option, text.find(' ', option) - option) : "";
  say(console, text + (unknown ? nearestOption(*command, word) : "") + "; " + fullName(command) +
                   " --help shows how");
  return kWrongUse;
}

/// What nobody could read is not done: neither the output nor what was to be said beside it.
int afterWriting(int exitCode, Console& console) {
  console.out.flush();
  if (!console.out && exitCode == kDone) {
    say(console, "the output could not be written");
    return kFailed;
  }
  return !console.err && exitCode == kDone ? kFailed : exitCode;
}

std::string withHint(const Error& error) {
  const std::string text = textWithAdvice(error);
  if (text.find("no such table") != std::string::npos) {
    return text + "; kt7hr init makes the tables";
  }
  const std::string& statement = error.cause().statement;
  return statement.empty() ? text : text + "; the statement was: " + statement;
}

int runLine(int argc, const char* const* argv, Console& console) {
  if (argc <= 1) {
    console.out << kFirstSteps;
    return kDone;
  }
  CommandLine line{console, {}};
  CLI::App app("Payroll and personnel rules on a company's own database.", "kt7hr");
  app.set_version_flag(
      "--version",
      [] { return kVersionText + std::string("\ndatabases: ") + data::builtInDrivers(); },
      "Print the version and the databases that are built in, and stop");
  app.require_subcommand(1);
  app.footer(kExample);
  for (const auto add : kCommands) add(app, line);
  try {
    refuseUnknownFirst(app, argv[1]);
    app.parse(argc, argv);
    return line.chosen();
  } catch (const CLI::ParseError& error) {
    return explain(app, error, console);
  } catch (const WrongUse& error) {
    say(console, error.what());
    return kWrongUse;
  } catch (const Error& error) {
    say(console, withHint(error));
    return kFailed;
  } catch (const std::bad_alloc&) {
    say(console, "there is not enough memory for this");
    return kFailed;
  } catch (const std::exception& error) {
    say(console, error.what());
    return kFailed;
  }
}

}  // namespace

int run(int argc, const char* const* argv, Console& console) {
  data::useBuiltInDrivers();
  return afterWriting(runLine(argc, argv, console), console);
}

}  // namespace kt7::cli
