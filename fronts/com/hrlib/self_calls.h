#pragma once

#include <kt7/operations.h>
#include <kt7/profile_table.h>
#include "fronts/com/hrlib/slot_calls.h"

namespace kt7::hrlib {

/// The library's view of an automation object: each operation goes through the object's vtable. It
/// is what the library calls where one operation is defined by another, so that a host that wraps
/// the object is obeyed.
class SelfCalls : public kt7::_HRObject {
 private:
  template <std::size_t Row, typename Slot, typename... Given>
  auto through(Slot slot, Given&&... given) {
    using Operation = std::remove_cvref_t<decltype(std::get<Row>(kOperations))>;
    return slots_.call<typename Operation::Result>(
        static_cast<typename Operation::Arguments*>(nullptr), std::get<Row>(kOperations).name, slot,
        std::forward<Given>(given)...);
  }

 public:
  explicit SelfCalls(IUnknown* object, ::_HRObject* inner = nullptr)
      : slots_(object, inner, "HRObject") {}

#include "self_calls.inc"

 private:
  SlotCalls<::_HRObject> slots_;
};

/// The same for a pay profile, whose own setters the library calls.
class ProfileSelfCalls : public kt7::_EmployeeObject {
 private:
  template <std::size_t Row>
  using PropertyType =
      typename std::remove_cvref_t<decltype(std::get<Row>(kProfileProperties))>::Type;

  template <std::size_t Row, typename Slot>
  auto get(Slot slot) const {
    return slots_.call<PropertyType<Row>>(static_cast<std::tuple<>*>(nullptr),
                                          std::get<Row>(kProfileProperties).name, slot);
  }
  template <std::size_t Row, typename Slot, typename Given>
  void put(Slot slot, const Given& value) {
    slots_.call<void>(static_cast<std::tuple<PropertyArgument<PropertyType<Row>>>*>(nullptr),
                      std::get<Row>(kProfileProperties).name, slot, value);
  }
  template <std::size_t Row, typename Slot, typename... Given>
  auto method(Slot slot, Given&&... given) const {
    using Method = std::remove_cvref_t<decltype(std::get<Row>(kProfileMethods))>;
    return slots_.call<typename Method::Result>(static_cast<typename Method::Arguments*>(nullptr),
                                                std::get<Row>(kProfileMethods).name, slot,
                                                std::forward<Given>(given)...);
  }

 public:
  explicit ProfileSelfCalls(IUnknown* object, ::_EmployeeObject* inner = nullptr)
      : slots_(object, inner, "EmployeeObject") {}

#include "profile_self_calls.inc"

 private:
  SlotCalls<::_EmployeeObject> slots_;
};

}  // namespace kt7::hrlib
