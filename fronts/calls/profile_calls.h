#pragma once

#include <map>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include <kt7/contract/platform.h>
#include <kt7/employee_interface.h>
#include "json_values.h"
#include "parameters.h"

namespace kt7::cli {

/// The employee profiles of a session, each known by the number that EmployeeObject.new answered.
/// Answers have the shape of an operation's: {"value": ..., "out": {}}.
class ProfileCalls {
 public:
  struct Method {
    std::string_view name;
    std::vector<std::string_view> parameters;
    Json (*call)(ProfileCalls& calls, const Parameters& given);
  };

  /// Both outlive the object.
  ProfileCalls(Platform& platform, DataObj& dataObj) : platform_(platform), dataObj_(dataObj) {}

  /// "EmployeeObject.new" and its like.
  static std::span<const Method> methods();
  /// ProtocolError for parameters that do not fit, an unknown object or property and a property
  /// that is read only; otherwise what the profile raises.
  Json call(const Method& method, const Json& params);

 private:
  static Json create(ProfileCalls& calls, const Parameters& given);
  static Json release(ProfileCalls& calls, const Parameters& given);
  static Json loadType(ProfileCalls& calls, const Parameters& given);
  template <auto Action>
  static Json apply(ProfileCalls& calls, const Parameters& given);
  _EmployeeObject& profileOf(const Parameters& given);

  Platform& platform_;
  DataObj& dataObj_;
  std::map<std::int32_t, std::unique_ptr<_EmployeeObject>> profiles_;
  std::int32_t lastNumber_ = 0;
};

}  // namespace kt7::cli
