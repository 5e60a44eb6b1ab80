#pragma once

#include "fronts/com/hrlib/crossing.h"

namespace kt7::hrlib {

/// One argument of a slot on its way into the library and, by reference, back: A is the type of the
/// library's parameter. A null pointer stands for the zero of the type, or for an object that was
/// not set; nothing comes back through it.
template <typename A>
class EarlyArgument {
  using T = std::remove_cvref_t<A>;

 public:
  explicit EarlyArgument(typename Wire<T>::Type given) : value_(Wire<T>::in(given)) {}
  const T& value() { return value_; }
  void giveBack() {}

 private:
  T value_;
};

template <typename A>
requires(kByReference<A> && !HostObject<A>) class EarlyArgument<A> {
  using T = std::remove_cvref_t<A>;

 public:
  explicit EarlyArgument(typename Wire<T>::Type* given)
      : given_(given), value_(given != nullptr ? Wire<T>::in(*given) : T{}) {}
  T& value() { return value_; }
  void giveBack() {
    if (given_ == nullptr) return;
    typename Wire<T>::Type result = Wire<T>::out(value_);
    if constexpr (std::is_same_v<T, std::string>) SysFreeString(*given_);
    *given_ = result;
  }

 private:
  typename Wire<T>::Type* given_;
  T value_;
};

template <HostObject A>
class EarlyArgument<A> {
 public:
  explicit EarlyArgument(IDispatch** given)
      : object_(adapted<A>(given != nullptr ? *given : nullptr)) {}
  A value() { return object_; }
  void giveBack() {}

 private:
  decltype(adapted<A>(nullptr)) object_;
};

}  // namespace kt7::hrlib
