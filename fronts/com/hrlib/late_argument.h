#pragma once

#include <kt7/operations.h>
#include "fronts/com/automation/arguments.h"
#include "fronts/com/hrlib/crossing.h"

namespace kt7::hrlib {

/// What a value of the library is in the answer of a call by name.
template <typename T>
automation::Variant lateResult(const T& value) {
  if constexpr (std::is_enum_v<T>) {
    return static_cast<std::int32_t>(value);
  } else {
    return value;
  }
}

/// One argument of a call by name on its way into the library and, by reference, back. Every
/// conversion of the automation rules is made here, also for what a script host passes as a
/// reference to a variable of any type.
template <typename A>
class LateArgument {
  using T = std::remove_cvref_t<A>;

 public:
  LateArgument(const automation::Arguments& given, std::size_t position, const Parameter& parameter)
      : given_(given), position_(position), value_(read(parameter)) {
    // A variable that cannot take its own value back is refused before the work is done, which may
    // write to the database.
    prepare();
  }

  std::conditional_t<kByReference<A>, T&, const T&> value() { return value_; }
  void prepare() {
    if constexpr (kByReference<A>) result_ = given_.converted(position_, lateResult(value_));
  }
  void giveBack() noexcept {
    if constexpr (kByReference<A>) given_.store(position_, std::move(result_));
  }

 private:
  T read(const Parameter& parameter) const {
    if constexpr (std::is_enum_v<T>) {
      return static_cast<T>(given_.get<std::int32_t>(position_, parameter.optional));
    } else {
      return given_.get<T>(position_, parameter.optional);
    }
  }

  const automation::Arguments& given_;
  std::size_t position_;
  T value_;
  automation::Variant result_;
};

template <HostObject A>
class LateArgument<A> {
 public:
  LateArgument(const automation::Arguments& given, std::size_t position, const Parameter&)
      : object_(adapted<A>(given.object(position).Get())) {
    if (!given.has(position)) automation::Arguments::raiseMissing(position);
  }
  A value() { return object_; }
  void prepare() {}
  void giveBack() noexcept {}

 private:
  decltype(adapted<A>(nullptr)) object_;
};

}  // namespace kt7::hrlib
