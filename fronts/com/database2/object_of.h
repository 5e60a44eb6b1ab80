#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include <kt7/error.h>
#include <kt7/value.h>
#include "fronts/com/automation/named_members.h"

namespace kt7::database2 {

using automation::Variant;

inline constexpr const char* kSource = "KT7Database2";

/// What every object of this library answers to its own code alone: which C++ object it holds.
class OwnObject {
 public:
  static const IID kId;
  virtual ~OwnObject() = default;
  /// The one behind an interface; null for anybody else's object.
  static OwnObject* behind(IUnknown* object);
};

template <typename Target>
class ObjectOf;

template <typename Target>
using MemberOf = automation::NamedMember<ObjectOf<Target>>;

/// The members of a class; specialised beside each class.
template <typename Target>
std::span<const MemberOf<Target>> membersOf();

/// An automation object around a plain C++ one, which knows nothing of automation.
template <typename Target>
class ObjectOf final : public automation::NamedMembers<ObjectOf<Target>>, public OwnObject {
 public:
  static constexpr const char* kSource = database2::kSource;
  static std::span<const MemberOf<Target>> members() { return membersOf<Target>(); }

  template <typename... A>
  explicit ObjectOf(IUnknown* outer, A&&... arguments)
      : automation::NamedMembers<ObjectOf<Target>>(outer), target_(std::forward<A>(arguments)...) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr || !IsEqualIID(id, OwnObject::kId)) {
      return automation::NamedMembers<ObjectOf<Target>>::QueryInterface(id, object);
    }
    *object = static_cast<OwnObject*>(this);
    this->AddRef();
    return S_OK;
  }

  Target& target() { return target_; }

 private:
  Target target_;
};

/// A new object, counted by the variant alone.
template <typename Target, typename... A>
Variant newObject(A&&... arguments) {
  auto* const made = new ObjectOf<Target>(nullptr, std::forward<A>(arguments)...);
  Variant answer(static_cast<IDispatch*>(made));
  made->own()->Release();
  return answer;
}

/// The C++ object in an argument; null where it is none of that class.
template <typename Target>
Target* targetIn(const VARIANT& argument) {
  auto* const found =
      dynamic_cast<ObjectOf<Target>*>(OwnObject::behind(automation::objectIn(argument).Get()));
  return found == nullptr ? nullptr : &found->target();
}

/// An argument on its way into a parameter of type T; one that may be left out is an optional.
template <typename T>
class Parameter {
 public:
  explicit Parameter(const VARIANT& given) : value_(read(given)) {}
  const T& pass() const { return value_; }

 private:
  static T read(const VARIANT& given) {
    if constexpr (std::is_same_v<T, Value>) {
      return automation::toValue(given);
    } else {
      return automation::fromVariant<T>(given);
    }
  }
  T value_;
};

namespace detail {

template <typename T>
struct Passed {
  using Holder = Parameter<T>;
  static Holder from(const automation::Arguments& arguments, std::size_t position) {
    if (!arguments.has(position)) automation::Arguments::raiseMissing(position);
    return Holder(*arguments.at(position));
  }
};
template <typename T>
struct Passed<std::optional<T>> {
  struct Holder {
    std::optional<T> value;
    const std::optional<T>& pass() const { return value; }
  };
  static Holder from(const automation::Arguments& arguments, std::size_t position) {
    if (!arguments.has(position)) return {};
    return {Parameter<T>(*arguments.at(position)).pass()};
  }
};

template <typename Function>
struct Signature;
template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...)> {
  using Parameters = std::tuple<std::decay_t<A>...>;
};
template <typename R, typename C, typename... A>
struct Signature<R (C::*)(A...) const> : Signature<R (C::*)(A...)> {};
template <typename R, typename C, typename... A>
struct Signature<R (*)(C&, A...)> : Signature<R (C::*)(A...)> {};

template <auto Function>
using ParametersOf = typename Signature<decltype(Function)>::Parameters;
template <auto Function>
inline constexpr std::size_t kCountOf = std::tuple_size_v<ParametersOf<Function>>;

template <auto Function, typename Target, std::size_t... I>
Variant call(Target& target, const automation::Arguments& arguments, std::index_sequence<I...>) {
  using Parameters = ParametersOf<Function>;
  const std::tuple given{Passed<std::tuple_element_t<I, Parameters>>::from(arguments, I)...};
  const auto run = [&]() -> decltype(auto) {
    return std::invoke(Function, target, std::get<I>(given).pass()...);
  };
  if constexpr (std::is_void_v<decltype(run())>) {
    run();
    return {};
  } else {
    return Variant(run());
  }
}

template <auto Function, typename Target>
Variant call(Target& target, const automation::Arguments& arguments) {
  return call<Function>(target, arguments, std::make_index_sequence<kCountOf<Function>>());
}

template <auto Function, typename Target>
Variant put(Target& target, const automation::MemberCall& given) {
  using Kept = std::tuple_element_t<0, ParametersOf<Function>>;
  static_assert(kCountOf<Function> == 1);
  if (given.newValue == nullptr) automation::Arguments::raiseMissing(0);
  std::invoke(Function, target, Parameter<Kept>(*given.newValue).pass());
  return {};
}

inline constexpr WORD kAnswers = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

}  // namespace detail

/// A method, or a property that is only read: a member function of the class or of what it points
/// to, or a function that takes the object first. To a script host both are the same.
template <typename Target, auto Function>
constexpr MemberOf<Target> answers(std::wstring_view name) {
  return {name, detail::kAnswers, detail::kCountOf<Function>,
          [](ObjectOf<Target>& object, const automation::MemberCall& given) {
            return detail::call<Function>(object.target(), given.arguments);
          }};
}

/// A property without arguments that is read and set.
template <typename Target, auto Get, auto Set>
constexpr MemberOf<Target> property(std::wstring_view name) {
  return {name, detail::kAnswers | DISPATCH_PROPERTYPUT, detail::kCountOf<Get>,
          [](ObjectOf<Target>& object, const automation::MemberCall& given) {
            if (given.flags & DISPATCH_PROPERTYPUT) {
              return detail::put<Set>(object.target(), given);
            }
            return detail::call<Get>(object.target(), given.arguments);
          }};
}

}  // namespace kt7::database2
