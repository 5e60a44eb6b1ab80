#include "parameters.h"

#include <algorithm>
#include <array>

#include "fronts/common/nearest_name.h"
#include "protocol_error.h"

namespace kt7::cli {

namespace {

constexpr std::array<std::string_view, 4> kSessionObjects{"DataObj", "AppObj", "ClientObj",
                                                          "ConObj"};

template <typename Names>
bool contains(const Names& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

[[noreturn]] void refuse(const std::string& message) {
  throw ProtocolError(ProtocolError::kInvalidParams, message);
}

}  // namespace

Parameters::Parameters(const Json& params, std::span<const std::string_view> known)
    : params_(params) {
  if (!params.is_object()) refuse("params must be an object of named parameters");
  for (const auto& [name, value] : params.items()) {
    if (contains(known, name)) continue;
    if (contains(kSessionObjects, name))
      refuse("leave out '" + name + "': the session supplies it");
    refuse("unknown parameter '" + name + "'" + didYouMean(name, known));
  }
}

const Json* Parameters::find(std::string_view name) const {
  const auto at = params_.find(name);
  return at != params_.end() ? &*at : nullptr;
}

const Json& Parameters::required(std::string_view name) const {
  const Json* value = find(name);
  if (value == nullptr) refuse("missing parameter '" + std::string(name) + "'");
  return *value;
}

}  // namespace kt7::cli
