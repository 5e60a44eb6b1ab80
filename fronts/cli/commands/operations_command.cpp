#include <CLI/CLI.hpp>
#include <ostream>

#include "command.h"
#include "fronts/cli/pages/operations_page.h"
#include "fronts/common/nearest_name.h"

namespace kt7::cli {

namespace {

std::string asked(const std::string& name) {
  if (name.empty()) return operationsPage();
  if (auto section = operationSection(name)) return *std::move(section);
  throw WrongUse("no described operation '" + name + "'" + didYouMean(name, sectionNames()) +
                 "; kt7hr operations lists all");
}

}  // namespace

void addOperations(CLI::App& app, CommandLine& line) {
  const auto name = std::make_shared<std::string>();
  CLI::App& command = addCommand(app, "operations", "Print the reference of the operations",
                                 "kt7hr operations GETDAYRATE");
  command
      .add_option("operation", *name,
                  "The operation, or method of the profile; without it the whole reference")
      ->type_name("OPERATION");
  command.callback([name, &line] {
    line.chosen = [name, &line] {
      line.console.out << asked(*name);
      return kDone;
    };
  });
}

}  // namespace kt7::cli
