#pragma once

#include <wrl/client.h>

#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "fronts/com/automation/status.h"
#include "fronts/com/hrlib/crossing.h"

namespace kt7::hrlib {

/// An argument of the library on its way out through a slot and, by reference, back.
template <typename A>
class OutgoingArgument {
  using T = std::remove_cvref_t<A>;
  using Slot = typename Wire<T>::Type;

 public:
  explicit OutgoingArgument(A argument) : argument_(argument), slot_(Wire<T>::out(argument)) {}
  OutgoingArgument(const OutgoingArgument&) = delete;
  OutgoingArgument& operator=(const OutgoingArgument&) = delete;
  ~OutgoingArgument() {
    if constexpr (std::is_same_v<T, std::string>) SysFreeString(slot_);
  }
  auto slot() {
    if constexpr (kByReference<A>) {
      return &slot_;
    } else {
      return slot_;
    }
  }
  void takeBack() {
    if constexpr (kByReference<A>) argument_ = Wire<T>::in(slot_);
  }

 private:
  A argument_;
  Slot slot_;
};

template <HostObject A>
class OutgoingArgument<A> {
 public:
  explicit OutgoingArgument(A argument) : object_(behind(argument)) {}
  IDispatch** slot() { return &object_; }
  void takeBack() {}

 private:
  IDispatch* object_;
};

/// Calls of an automation object through its vtable with arguments of the library. The object is
/// asked for its interface each time and not kept: it may own the one who calls.
template <typename Interface>
class SlotCalls {
 public:
  /// `className` names the object in errors.
  SlotCalls(IUnknown* object, const char* className) : object_(object), className_(className) {}

  template <typename Result, typename... A, typename Slot, typename... Given>
  Result call(std::tuple<A...>*, std::string_view member, Slot slot, Given&&... given) const {
    automation::forgetErrorInformation();
    Microsoft::WRL::ComPtr<Interface> object;
    check(object_->QueryInterface(__uuidof(Interface), &object), member);
    std::tuple<OutgoingArgument<A>...> ready{static_cast<A>(given)...};
    return std::apply(
        [&](auto&... argument) -> Result {
          if constexpr (std::is_void_v<Result>) {
            check((object.Get()->*slot)(argument.slot()...), member);
            (argument.takeBack(), ...);
          } else {
            typename Wire<Result>::Type result{};
            check((object.Get()->*slot)(argument.slot()..., &result), member);
            (argument.takeBack(), ...);
            const Result taken = Wire<Result>::in(result);
            if constexpr (std::is_same_v<Result, std::string>) SysFreeString(result);
            return taken;
          }
        },
        ready);
  }

 private:
  void check(HRESULT status, std::string_view member) const {
    if (FAILED(status)) {
      automation::raiseStatus(status, className_ + "." + std::string(member));
    }
  }

  IUnknown* object_;
  std::string className_;
};

}  // namespace kt7::hrlib
