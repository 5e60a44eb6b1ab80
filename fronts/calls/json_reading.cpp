#include "json_reading.h"

namespace kt7::cli {

namespace {

/// A batch of requests with their parameters has three.
constexpr int kDeepest = 32;

}  // namespace

Json parseJson(std::string_view text) {
  const auto refuseDeep = [](int depth, Json::parse_event_t, const Json&) {
    if (depth > kDeepest) {
      throw UnreadableJson("it is nested deeper than " + std::to_string(kDeepest) + " levels");
    }
    return true;
  };
  // The parser takes it for the end, and what stands behind it would be lost in silence.
  if (text.find('\0') != std::string_view::npos) throw UnreadableJson("it holds a zero byte");
  try {
    return Json::parse(text, refuseDeep);
  } catch (const Json::exception& error) {
    throw UnreadableJson(error.what());
  }
}

}  // namespace kt7::cli
