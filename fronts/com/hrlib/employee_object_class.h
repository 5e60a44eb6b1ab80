#pragma once

#include <kt7/employee_object.h>
#include <kt7/profile_table.h>
#include "fronts/com/adapters/windows_platform.h"
#include "fronts/com/hrlib/calls.h"
#include "fronts/com/hrlib/dual_object.h"
#include "fronts/com/hrlib/self_calls.h"

namespace kt7::hrlib {

/// The creatable class EmployeeObject: one employee's pay profile. The setters that SetTypeCode
/// calls go through the slots. Initialisation does not: an outer object cannot answer while this
/// one is being made.
class EmployeeObjectClass : public DualObject<EmployeeObjectClass, ::_EmployeeObject> {
 public:
  static constexpr const char* kSource = "KT7HRLib.EmployeeObject";

  explicit EmployeeObjectClass(IUnknown* outer)
      : DualObject(outer), selfCalls_(controlling(), this), object_(platform_, &selfCalls_) {}

  static std::span<const NamedCall<EmployeeObjectClass>> namedCalls();
  kt7::_EmployeeObject& object() { return object_; }

#include "profile_slots.inc"

 private:
  template <std::size_t Row, typename Out>
  HRESULT getProperty(Out result) {
    constexpr const auto& kProperty = std::get<Row>(kProfileProperties);
    using Type = typename std::remove_cvref_t<decltype(kProperty)>::Type;
    return callEarly<Type>(static_cast<std::tuple<>*>(nullptr), kSource,
                           __uuidof(::_EmployeeObject), object(), kProperty.get, result);
  }
  template <std::size_t Row, typename Given>
  HRESULT putProperty(std::nullptr_t, Given value) {
    constexpr const auto& kProperty = std::get<Row>(kProfileProperties);
    using Type = typename std::remove_cvref_t<decltype(kProperty)>::Type;
    return callEarly<void>(static_cast<std::tuple<PropertyArgument<Type>>*>(nullptr), kSource,
                           __uuidof(::_EmployeeObject), object(), kProperty.set, nullptr, value);
  }
  template <std::size_t Row, typename Out, typename... Given>
  HRESULT method(Out result, Given... given) {
    using Method = std::remove_cvref_t<decltype(std::get<Row>(kProfileMethods))>;
    return callEarly<typename Method::Result>(static_cast<typename Method::Arguments*>(nullptr),
                                              kSource, __uuidof(::_EmployeeObject), object(),
                                              Method::kMember, result, given...);
  }

  adapters::WindowsPlatform platform_;
  ProfileSelfCalls selfCalls_;
  kt7::EmployeeObject object_;
};

}  // namespace kt7::hrlib
