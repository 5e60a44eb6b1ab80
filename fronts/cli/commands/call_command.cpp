#include <CLI/CLI.hpp>
#include <iostream>

#include "base/text.h"
#include "command.h"
#include "fronts/calls/json_reading.h"
#include "fronts/calls/operation_calls.h"
#include "fronts/calls/protocol_error.h"
#include "fronts/cli/rpc/session_options.h"
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
  constexpr std::size_t kMostShown = 60;
  try {
    return parseJson(params);
  } catch (const UnreadableJson& error) {
    const std::string start = firstCharacters(params, kMostShown);
    throw WrongUse("'" + start + (start.size() < params.size() ? "..." : "") +
                   R"(' is no JSON; write the parameters as '{"EmployeeCode":"E0001"}' ()" +
                   error.what() + ")");
  }
}

/// Operations of that name leave the transaction to their caller.
bool needsTransaction(std::string_view operation) { return operation.ends_with("TR"); }

/// All of what the operation writes, or nothing.
Json callWhole(Session& session, const std::string& operation, const Json& params) {
  if (!needsTransaction(operation)) return session.call(operation, params);
  session.call("DataObj.BeginTransaction", Json::object());
  // What fails inside leaves with the session, and the transaction with it.
  Json result = session.call(operation, params);
  session.call("DataObj.CommitTransaction", Json::object());
  return result;
}

int callOnce(const CallOptions& given, Console& console) {
  refuseUnknownOperation(given.operation);
  const Json params = parsed(given.params);
  SessionOptions options = sessionOptions(given.database, given.workplace, console);
  Json messages = Json::array();
  options.showMessage = [&messages, show = options.showMessage](const std::string& text) {
    messages.push_back(text);
    show(text);
  };
  Session session(options);
  try {
    Json result = callWhole(session, given.operation, params);
    // An operation that shows a message instead of failing has not done its work.
    if (!messages.empty()) result["messages"] = messages;
    console.out << jsonText(result, console.outIsTerminal) << '\n';
  } catch (const ProtocolError& error) {
    throw WrongUse(given.operation + ": " + error.what());
  }
  return messages.empty() ? kDone : kFailed;
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
