#pragma once

#include <string>
#include <vector>

#include <kt7/hr_interface.h>
#include "client.h"
#include "fronts/com/hrlib/self_calls.h"

namespace kt7::client {

enum class Binding { Early, Late };

/// A variable of a script that is passed as an argument, and read again after the call.
template <typename A>
class ScriptVariable {
  using T = std::remove_cvref_t<A>;

 public:
  explicit ScriptVariable(A argument) : argument_(argument), variable_(initial(argument)) {}
  VARIANT reference() {
    VARIANT variant{};
    variant.vt = VT_BYREF | VT_VARIANT;
    variant.pvarVal = const_cast<VARIANT*>(&variable_.raw());
    return variant;
  }
  void takeBack() {
    if constexpr (hrlib::kByReference<A> && !hrlib::HostObject<A>) {
      argument_ = automation::fromVariant<T>(variable_.raw());
    }
  }

 private:
  static Variant initial(A argument) {
    if constexpr (hrlib::HostObject<A>) {
      return hrlib::behind(argument);
    } else if constexpr (std::is_enum_v<T>) {
      return static_cast<std::int32_t>(argument);
    } else {
      return argument;
    }
  }

  A argument_;
  Variant variable_;
};

/// HRObject by the names of its operations, as a script host calls it: every argument is a variable
/// by reference. Every second operation is called with its arguments named, in another order.
class CallsByName : public kt7::_HRObject {
  template <std::size_t Row, typename Slot, typename... Given>
  auto through(Slot, Given&&... given) {
    using Operation = std::remove_cvref_t<decltype(std::get<Row>(kOperations))>;
    const auto& operation = std::get<Row>(kOperations);
    return call<typename Operation::Result>(static_cast<typename Operation::Arguments*>(nullptr),
                                            operation.name, operation.parameters, Row % 2 == 1,
                                            std::forward<Given>(given)...);
  }

  template <typename Result, typename... A, typename... Given>
  Result call(std::tuple<A...>*, std::string_view name,
              const std::array<Parameter, sizeof...(A)>& parameters, bool named, Given&&... given) {
    std::tuple<ScriptVariable<A>...> variables{static_cast<A>(given)...};
    return std::apply(
        [&](auto&... variable) -> Result {
          std::vector<std::string_view> names;
          for (const Parameter& parameter : parameters) names.push_back(parameter.name);
          if (!named) names.clear();
          const Variant answer = invoke(name, names, {variable.reference()...});
          (variable.takeBack(), ...);
          if constexpr (!std::is_void_v<Result>) {
            return automation::fromVariant<Result>(answer.raw());
          }
        },
        variables);
  }

  Variant invoke(std::string_view name, const std::vector<std::string_view>& names,
                 std::vector<VARIANT> arguments);

  ComPtr<IDispatch> object_;

 public:
  explicit CallsByName(ComPtr<IDispatch> object) : object_(std::move(object)) {}

#include "self_calls.inc"
};

/// EmployeeObject by vtable slots, which the type library's offsets lead to, or by names.
class ProfileBinding {
 public:
  ProfileBinding(Binding binding, ComPtr<::_EmployeeObject> profile)
      : binding_(binding), profile_(std::move(profile)) {}

  Variant get(const std::string& property);
  void put(const std::string& property, const Variant& value);
  Variant call(const std::string& method, std::vector<VARIANT> arguments);

 private:
  Variant invoke(const std::string& member, INVOKEKIND kind, std::vector<VARIANT> arguments);
  Variant slotCall(const std::string& member, INVOKEKIND kind, std::vector<VARIANT>& arguments);

  Binding binding_;
  ComPtr<::_EmployeeObject> profile_;
};

}  // namespace kt7::client
