#pragma once

#include <string>

#include "fronts/calls/json_values.h"

namespace kt7::cli {

class Session;

/// JSON-RPC 2.0 over lines: one message or batch a line, parameters by name only.
class RpcMessages {
 public:
  /// The session outlives the object.
  explicit RpcMessages(Session& session) : session_(session) {}

  /// The answer to one line, without its line break; "" where none is due: a notification, or a
  /// blank line. A failure of any kind is an answer.
  std::string answer(const std::string& line);
  /// The answer to a line that could not be taken in.
  static std::string refusal(const std::string& why);

 private:
  Json answerBatch(const Json& requests);
  Json answerRequest(const Json& request);
  Json perform(const Json& id, const Json& request);

  Session& session_;
};

}  // namespace kt7::cli
