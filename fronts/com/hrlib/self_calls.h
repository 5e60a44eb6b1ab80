#pragma once

#include <wrl/client.h>

#include "fronts/com/automation/status.h"
#include "fronts/com/hrlib/crossing.h"
#include "interface/operations.h"

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

/// The library's view of an automation object: each operation goes through the object's vtable. It
/// is what the library calls where one operation is defined by another, so that a host that wraps
/// the object is obeyed. The object is asked for its interface each time and not kept: it owns us.
class SelfCalls : public kt7::_HRObject {
 private:
  template <std::size_t Row, typename Slot, typename... Given>
  auto through(Slot slot, Given&&... given) {
    using Operation = std::remove_cvref_t<decltype(std::get<Row>(kOperations))>;
    return call<typename Operation::Result>(static_cast<typename Operation::Arguments*>(nullptr),
                                            std::get<Row>(kOperations).name, slot,
                                            std::forward<Given>(given)...);
  }

  template <typename Result, typename... A, typename Slot, typename... Given>
  Result call(std::tuple<A...>*, std::string_view name, Slot slot, Given&&... given) {
    Microsoft::WRL::ComPtr<::_HRObject> object;
    check(object_->QueryInterface(__uuidof(::_HRObject), &object), name);
    std::tuple<OutgoingArgument<A>...> ready{static_cast<A>(given)...};
    return std::apply(
        [&](auto&... argument) -> Result {
          if constexpr (std::is_void_v<Result>) {
            check((object.Get()->*slot)(argument.slot()...), name);
            (argument.takeBack(), ...);
          } else {
            typename Wire<Result>::Type result{};
            check((object.Get()->*slot)(argument.slot()..., &result), name);
            (argument.takeBack(), ...);
            const Result taken = Wire<Result>::in(result);
            if constexpr (std::is_same_v<Result, std::string>) SysFreeString(result);
            return taken;
          }
        },
        ready);
  }

  static void check(HRESULT status, std::string_view name) {
    if (FAILED(status)) automation::raiseStatus(status, "HRObject." + std::string(name));
  }

 public:
  explicit SelfCalls(IUnknown* object) : object_(object) {}

#include "self_calls.inc"

 private:
  IUnknown* object_;
};

}  // namespace kt7::hrlib
