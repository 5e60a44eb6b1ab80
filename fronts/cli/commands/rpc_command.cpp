#include <CLI/CLI.hpp>
#include <iostream>

#include "command.h"
#include "fronts/cli/rpc/request_lines.h"
#include "fronts/cli/rpc/rpc_messages.h"
#include "fronts/cli/rpc/session_options.h"

namespace kt7::cli {

namespace {

struct RpcOptions {
  DatabaseOptions database;
  WorkplaceOptions workplace;
  bool trace = false;
};

/// The answer to the next line; false after the last one.
bool answerNext(RequestLines& lines, RpcMessages& messages, std::string& answer) {
  answer.clear();
  try {
    std::string line;
    switch (lines.next(line)) {
      case RequestLines::Next::End:
        return false;
      case RequestLines::Next::Line:
        answer = messages.answer(line);
        break;
      case RequestLines::Next::TooLong:
        answer = RpcMessages::refusal("the line is longer than " +
                                      std::to_string(RequestLines::kLongest) +
                                      " bytes; send its requests one by one");
    }
  } catch (const std::bad_alloc&) {
    answer = RpcMessages::refusal("there is not enough memory for the line");
  } catch (const std::ios_base::failure&) {
    throw std::runtime_error("the requests could not be read to their end");
  }
  return true;
}

int serve(const RpcOptions& given, Console& console) {
  SessionOptions options = sessionOptions(given.database, given.workplace, console);
  options.trace = given.trace;
  // No person sits at this end: a picker that nobody answers for has chosen nothing.
  if (!options.pick) options.pick.emplace();
  Session session(options);
  RpcMessages messages(session);
  RequestLines lines(console.in);
  for (std::string answer; console.out && answerNext(lines, messages, answer);) {
    if (!answer.empty()) console.out << answer << std::endl;
  }
  return kDone;
}

}  // namespace

void addRpc(CLI::App& app, CommandLine& line) {
  const auto given = std::make_shared<RpcOptions>();
  CLI::App& command = addCommand(
      app, "rpc", "Answer JSON-RPC 2.0 requests for operations, one a line, until the input ends",
      R"(echo '{"jsonrpc":"2.0","id":1,"method":"GETDAYRATE","params":{"EmployeeCode":"E0001"}}' |
    kt7hr rpc --db 'Driver=SQLite;Database=company.db')");
  given->database.addTo(command);
  given->workplace.addTo(command);
  command.add_flag("--trace", given->trace, "Show with each answer what it did on the database");
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return serve(*given, line.console); }; });
}

}  // namespace kt7::cli
