#pragma once

#include <wrl/client.h>

#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "fronts/com/automation/status.h"
#include "fronts/com/hrlib/crossing.h"
#include "fronts/com/hrlib/variables.h"

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
      return shared_;
    } else {
      return slot_;
    }
  }
  void join(Variables& variables) {
    if constexpr (kByReference<A>) shared_ = variables.valueOf(&argument_, &slot_);
  }
  void takeBack() {
    if constexpr (kByReference<A>) {
      if (shared_ == &slot_) argument_ = Wire<T>::in(slot_);
    }
  }

 private:
  A argument_;
  Slot slot_;
  Slot* shared_ = nullptr;  // from join on
};

template <HostObject A>
class OutgoingArgument<A> {
 public:
  explicit OutgoingArgument(A argument) : object_(behind(argument)) {}
  IDispatch** slot() { return &object_; }
  void join(Variables&) {}
  void takeBack() {}

 private:
  IDispatch* object_;
};

/// Calls of an automation object through its vtable with arguments of the library. The object is
/// asked for its interface each time and not kept: it may own the one who calls. One that does not
/// show the interface wraps none of it: then the slots are those of `inner`.
template <typename Interface>
class SlotCalls {
 public:
  /// `className` names the object in errors.
  SlotCalls(IUnknown* object, Interface* inner, const char* className)
      : object_(object), inner_(inner), className_(className) {}

  template <typename Result, typename... A, typename Slot, typename... Given>
  Result call(std::tuple<A...>*, std::string_view member, Slot slot, Given&&... given) const {
    automation::forgetErrorInformation();
    Microsoft::WRL::ComPtr<Interface> object;
    const HRESULT shown = object_->QueryInterface(__uuidof(Interface), &object);
    if (FAILED(shown) && inner_ != nullptr) object = inner_;
    if (!object) check(shown, member);
    std::tuple<OutgoingArgument<A>...> ready{static_cast<A>(given)...};
    return std::apply(
        [&](auto&... argument) -> Result {
          Variables variables;
          (argument.join(variables), ...);
          if constexpr (std::is_void_v<Result>) {
            const HRESULT status = (object.Get()->*slot)(argument.slot()...);
            (argument.takeBack(), ...);
            check(status, member);
          } else {
            typename Wire<Result>::Type result{};
            const HRESULT status = (object.Get()->*slot)(argument.slot()..., &result);
            (argument.takeBack(), ...);
            check(status, member);
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
  Interface* inner_;
  std::string className_;
};

}  // namespace kt7::hrlib
