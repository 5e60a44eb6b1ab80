#pragma once

#include <kt7/operations.h>
#include "fronts/com/automation/arguments.h"
#include "fronts/com/hrlib/crossing.h"
#include "fronts/com/hrlib/variables.h"

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

template <typename T>
T lateValue(const automation::Arguments& given, std::size_t position, const Parameter& parameter) {
  if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(given.get<std::int32_t>(position, parameter.optional));
  } else {
    return given.get<T>(position, parameter.optional);
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
      : value_(lateValue<T>(given, position, parameter)) {}
  const T& value() { return value_; }
  void join(Variables&) {}
  void prepare() {}
  void giveBack() noexcept {}

 private:
  T value_;
};

template <typename A>
requires(kByReference<A> && !HostObject<A>) class LateArgument<A> {
  using T = std::remove_cvref_t<A>;

 public:
  LateArgument(const automation::Arguments& given, std::size_t position, const Parameter& parameter)
      : given_(given),
        position_(position),
        before_(lateValue<T>(given, position, parameter)),
        value_(before_) {
    // A variable that cannot take its own value back is refused before the work is done, which may
    // write to the database.
    given_.converted(position_, lateResult(value_));
  }

  T& value() { return *shared_; }
  void join(Variables& variables) {
    shared_ = variables.valueOf(given_.variable(position_), &value_);
  }
  /// Only what the callee wrote comes back: the variable may stand for a parameter of another type
  /// too, and what was written to that one is not to be undone.
  void prepare() {
    isWritten_ = value_ != before_;
    if (isWritten_) result_ = given_.converted(position_, lateResult(value_));
  }
  void giveBack() noexcept {
    if (isWritten_) given_.store(position_, std::move(result_));
  }

 private:
  const automation::Arguments& given_;
  std::size_t position_;
  T before_;
  T value_;
  T* shared_ = nullptr;  // from join on
  bool isWritten_ = false;
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
  void join(Variables&) {}
  void prepare() {}
  void giveBack() noexcept {}

 private:
  decltype(adapted<A>(nullptr)) object_;
};

}  // namespace kt7::hrlib
