#include "profile_calls.h"

#include <array>

#include <kt7/employee_object.h>
#include <kt7/profile_table.h>
#include "fronts/common/nearest_name.h"
#include "protocol_error.h"

namespace kt7::cli {

namespace {

constexpr auto kPropertyNames = std::apply(
    [](const auto&... property) {
      return std::array<std::string_view, sizeof...(property)>{property.name...};
    },
    kProfileProperties);

/// Hands the property of that name to the action; invalid params where there is none.
template <typename Action>
void withProperty(const std::string& name, Action action) {
  const auto tried = [&](const auto& property) {
    if (property.name != name) return false;
    action(property);
    return true;
  };
  const bool found = std::apply([&](const auto&... property) { return (tried(property) || ...); },
                                kProfileProperties);
  if (found) return;
  throw ProtocolError(
      ProtocolError::kInvalidParams,
      "no property '" + name + "' in EmployeeObject" + didYouMean(name, kPropertyNames));
}

Json getProperty(const _EmployeeObject& profile, const Parameters& given) {
  Json value;
  withProperty(given.get<std::string>("property"),
               [&](const auto& property) { value = toJson((profile.*property.get)()); });
  return value;
}

Json setProperty(_EmployeeObject& profile, const Parameters& given) {
  withProperty(given.get<std::string>("property"), [&](const auto& property) {
    using Type = typename std::remove_cvref_t<decltype(property)>::Type;
    if (property.set == nullptr) {
      throw ProtocolError(ProtocolError::kInvalidParams,
                          "property '" + std::string(property.name) + "' is read only");
    }
    (profile.*property.set)(given.get<Type>("value"));
  });
  return nullptr;
}

Json setSalary(_EmployeeObject& profile, const Parameters& given) {
  const auto salary1 = given.get<double>("iSalary1");
  const auto salary2 = given.get<double>("iSalary2");
  profile.SETSALARY(salary1, salary2, given.get<double>("QuantityCalc"));
  return nullptr;
}

Json calcMethod(const _EmployeeObject& profile, const Parameters&) { return profile.CalcMethod(); }
Json calcMethodSalary(const _EmployeeObject& profile, const Parameters&) {
  return profile.CalcMethodSalary();
}

}  // namespace

Json ProfileCalls::create(ProfileCalls& calls, const Parameters&) {
  auto profile = std::make_unique<EmployeeObject>(calls.platform_);
  calls.profiles_.emplace(++calls.lastNumber_, std::move(profile));
  return calls.lastNumber_;
}

Json ProfileCalls::release(ProfileCalls& calls, const Parameters& given) {
  calls.profileOf(given);
  calls.profiles_.erase(given.get<std::int32_t>("object"));
  return nullptr;
}

Json ProfileCalls::loadType(ProfileCalls& calls, const Parameters& given) {
  _EmployeeObject& profile = calls.profileOf(given);
  profile.SetTypeCode(given.get<std::string>("vData"), calls.dataObj_);
  return nullptr;
}

template <auto Action>
Json ProfileCalls::apply(ProfileCalls& calls, const Parameters& given) {
  return Action(calls.profileOf(given), given);
}

std::span<const ProfileCalls::Method> ProfileCalls::methods() {
  static const std::array<Method, 8> kMethods{{
      {"EmployeeObject.new", {}, &create},
      {"EmployeeObject.get", {"object", "property"}, &apply<getProperty>},
      {"EmployeeObject.set", {"object", "property", "value"}, &apply<setProperty>},
      {"EmployeeObject.SetTypeCode", {"object", "vData"}, &loadType},
      {"EmployeeObject.SETSALARY",
       {"object", "iSalary1", "iSalary2", "QuantityCalc"},
       &apply<setSalary>},
      {"EmployeeObject.CalcMethod", {"object"}, &apply<calcMethod>},
      {"EmployeeObject.CalcMethodSalary", {"object"}, &apply<calcMethodSalary>},
      {"EmployeeObject.free", {"object"}, &release},
  }};
  return kMethods;
}

Json ProfileCalls::call(const Method& method, const Json& params) {
  Json value = method.call(*this, Parameters(params, method.parameters));
  return Json{{"value", std::move(value)}, {"out", Json::object()}};
}

_EmployeeObject& ProfileCalls::profileOf(const Parameters& given) {
  const auto number = given.get<std::int32_t>("object");
  const auto at = profiles_.find(number);
  if (at == profiles_.end()) {
    throw ProtocolError(ProtocolError::kInvalidParams,
                        "no object " + std::to_string(number) + ": EmployeeObject.new makes one");
  }
  return *at->second;
}

}  // namespace kt7::cli
