#pragma once

#include <utility>

#include "fronts/com/hrlib/crossing.h"
#include "fronts/com/hrlib/variables.h"

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
  void join(Variables&) {}
  void prepare() {}
  void giveBack() noexcept {}

 private:
  T value_;
};

template <typename A>
requires(kByReference<A> && !HostObject<A>) class EarlyArgument<A> {
  using T = std::remove_cvref_t<A>;

 public:
  explicit EarlyArgument(typename Wire<T>::Type* given)
      : given_(given), value_(given != nullptr ? Wire<T>::in(*given) : T{}) {}
  EarlyArgument(const EarlyArgument&) = delete;
  EarlyArgument& operator=(const EarlyArgument&) = delete;
  ~EarlyArgument() {
    if constexpr (std::is_same_v<T, std::string>) SysFreeString(result_);
  }
  T& value() { return *shared_; }
  void join(Variables& variables) { shared_ = variables.valueOf(given_, &value_); }
  void prepare() {
    if (comesBack()) result_ = Wire<T>::out(value_);
  }
  /// What stood there is let go of with this.
  void giveBack() noexcept {
    if (comesBack()) std::swap(*given_, result_);
  }

 private:
  bool comesBack() const { return given_ != nullptr && shared_ == &value_; }

  typename Wire<T>::Type* given_;
  T value_;
  T* shared_ = nullptr;  // from join on
  typename Wire<T>::Type result_{};
};

template <HostObject A>
class EarlyArgument<A> {
 public:
  explicit EarlyArgument(IDispatch** given)
      : object_(adapted<A>(given != nullptr ? *given : nullptr)) {}
  A value() { return object_; }
  void join(Variables&) {}
  void prepare() {}
  void giveBack() noexcept {}

 private:
  decltype(adapted<A>(nullptr)) object_;
};

}  // namespace kt7::hrlib
