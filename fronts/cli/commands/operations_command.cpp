#include <CLI/CLI.hpp>
#include <ostream>

#include "command.h"
#include "fronts/cli/pages/operations_page.h"

namespace kt7::cli {

void addOperations(CLI::App& app, CommandLine& line) {
  CLI::App& command =
      addCommand(app, "operations", "List the published operations", "kt7hr operations | less -S");
  command.callback([&line] {
    line.chosen = [&line] {
      line.console.out << operationsPage();
      return kDone;
    };
  });
}

}  // namespace kt7::cli
