#include "rpc_messages.h"

#include <kt7/error.h>
#include "base/text.h"
#include "fronts/calls/json_reading.h"
#include "fronts/calls/protocol_error.h"
#include "fronts/cli/line/advice.h"
#include "session.h"

namespace kt7::cli {

namespace {

/// The answers of a batch are held until its last request is answered.
constexpr std::size_t kLargestBatch = 10000;

Json message(const Json& id, const char* member, Json content) {
  return Json{{"jsonrpc", "2.0"}, {"id", id}, {member, std::move(content)}};
}

Json failure(const Json& id, int code, const std::string& text, Json data = nullptr) {
  Json error{{"code", code}, {"message", text}};
  if (!data.is_null() && !data.empty()) error["data"] = std::move(data);
  return message(id, "error", std::move(error));
}

Json causeOf(const Error& error) {
  Json data{{"kind", kindName(error.kind())}};
  const DatabaseCause& cause = error.cause();
  if (!cause.statement.empty()) data["statement"] = cause.statement;
  if (cause.nativeCode != 0) data["nativeCode"] = cause.nativeCode;
  if (!cause.sqlState.empty()) data["sqlState"] = cause.sqlState;
  return data;
}

bool isId(const Json& id) { return id.is_string() || id.is_number() || id.is_null(); }

/// The request's id where it has a usable one, so that also a refused request can be matched.
Json idOf(const Json& request) {
  if (!request.is_object() || !request.contains("id") || !isId(request["id"])) return nullptr;
  return request["id"];
}

void checkRequest(const Json& request) {
  const auto refuse = [](const char* text) {
    throw ProtocolError(ProtocolError::kInvalidRequest, text);
  };
  if (!request.is_object()) refuse("a request is an object");
  const auto version = request.find("jsonrpc");
  if (version == request.end() || *version != "2.0") refuse("\"jsonrpc\" must be \"2.0\"");
  const auto method = request.find("method");
  if (method == request.end() || !method->is_string()) refuse("\"method\" must be a text");
  if (request.contains("id") && !isId(request["id"])) refuse("\"id\" must be a text or a number");
}

}  // namespace

std::string RpcMessages::answer(const std::string& line) {
  if (trimmedBlanks(line).empty()) return {};
  Json request;
  try {
    request = parseJson(line);
  } catch (const UnreadableJson& error) {
    return refusal(std::string("the line is no JSON: ") + error.what());
  }
  const Json answer = request.is_array() ? answerBatch(request) : answerRequest(request);
  return answer.is_null() ? std::string() : jsonText(answer);
}

std::string RpcMessages::refusal(const std::string& why) {
  return jsonText(failure(nullptr, ProtocolError::kParseError, why));
}

/// Null where every request of the batch is a notification.
Json RpcMessages::answerBatch(const Json& requests) {
  if (requests.empty()) {
    return failure(nullptr, ProtocolError::kInvalidRequest, "an empty batch");
  }
  if (requests.size() > kLargestBatch) {
    return failure(
        nullptr, ProtocolError::kInvalidRequest,
        "a batch of more than " + std::to_string(kLargestBatch) + " requests; send several");
  }
  Json answers;
  for (const Json& request : requests) {
    Json answer = answerRequest(request);
    if (!answer.is_null()) answers.push_back(std::move(answer));
  }
  return answers;
}

/// Null where the request is a notification.
Json RpcMessages::answerRequest(const Json& request) {
  const Json id = idOf(request);
  try {
    checkRequest(request);
  } catch (const ProtocolError& error) {
    return failure(id, error.code(), error.what());
  }
  Json answer = perform(id, request);
  return request.contains("id") ? answer : Json();
}

Json RpcMessages::perform(const Json& id, const Json& request) {
  const auto traced = [this](Json content) {
    if (session_.traces()) content["trace"] = session_.takeTrace();
    return content;
  };
  try {
    const auto params = request.find("params");
    Json result = session_.call(request["method"].get<std::string>(),
                                params != request.end() ? *params : Json::object());
    return message(id, "result", traced(std::move(result)));
  } catch (const ProtocolError& error) {
    return failure(id, error.code(), error.what(), traced(Json::object()));
  } catch (const Error& error) {
    return failure(id, error.number(), textWithAdvice(error), traced(causeOf(error)));
  } catch (const std::bad_alloc&) {
    return failure(id, ProtocolError::kInternalError, "there is not enough memory for the call",
                   traced(Json::object()));
  } catch (const std::exception& error) {
    return failure(id, ProtocolError::kInternalError, error.what(), traced(Json::object()));
  }
}

}  // namespace kt7::cli
