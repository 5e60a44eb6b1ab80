#include <CLI/CLI.hpp>
#include <iostream>

#include "command.h"
#include "fronts/calls/operation_calls.h"
#include "fronts/calls/protocol_error.h"
#include "fronts/cli/rpc/session.h"
#include "fronts/common/nearest_name.h"

namespace kt7::cli {

namespace {

struct CallOptions {
  DatabaseOptions database;
  WorkplaceOptions workplace;
  std::string operation;
  std::string params = "{}";
};

void refuseUnknownOperation(const std::string& name) {
  if (findOperation(name) != nullptr) return;
  std::vector<std::string_view> names;
  for (const OperationCall& call : operationCalls()) names.push_back(call.name);
  throw WrongUse("no operation '" + name + "'" + didYouMean(name, names) +
                 "; kt7hr call --help lists all");
}

Json parsed(const std::string& params) {
  try {
    return Json::parse(params);
  } catch (const Json::exception&) {
    throw WrongUse("'" + params +
                   R"(' is no JSON; write the parameters as '{"EmployeeCode":"E0001"}')");
  }
}

int callOnce(const CallOptions& given, Console& console) {
  refuseUnknownOperation(given.operation);
  const Json params = parsed(given.params);
  Session session(sessionOptions(given.database, given.workplace, console));
  try {
    console.out << jsonText(session.call(given.operation, params), console.outIsTerminal) << '\n';
  } catch (const ProtocolError& error) {
    throw WrongUse(given.operation + ": " + error.what());
  }
  return kDone;
}

std::string operationList() {
  std::string list = "Operations:";
  std::size_t column = list.size();
  constexpr std::size_t kWidth = 90;
  for (const OperationCall& call : operationCalls()) {
    if (column + 1 + call.name.size() > kWidth) {
      list += "\n ";
      column = 1;
    }
    list.append(" ").append(call.name);
    column += 1 + call.name.size();
  }
  return list;
}

}  // namespace

void addCall(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<CallOptions>();
  CLI::App& command = addCommand(app, "call", "Call one operation and print its result as JSON",
                                 R"(kt7hr call GETDAYRATE '{"EmployeeCode":"E0001"}')");
  command.footer(command.get_footer() + "\n\n" + operationList());
  command.add_option("operation", given->operation, "The operation by its published name")
      ->required()
      ->type_name("OPERATION");
  command
      .add_option("params", given->params,
                  "Its parameters by their published names, as a JSON object")
      ->type_name("JSON");
  given->database.addTo(command);
  given->workplace.addTo(command);
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return callOnce(*given, line.console); }; });
}

}  // namespace kt7::cli
