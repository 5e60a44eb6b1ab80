#pragma once

#include <windows.h>

#include <string>
#include <type_traits>

#include <kt7/enumerations.h>
#include "KT7HRLib.h"
#include "fronts/com/adapters/host_objects.h"
#include "fronts/com/automation/text.h"
#include "fronts/com/automation/variant.h"

/// How one type of the library crosses to automation and back. `Wire` is the type in a vtable slot.
namespace kt7::hrlib {

template <typename T>
struct Wire {  // whole numbers and floating point cross as they are
  using Type = T;
  static T in(Type value) { return value; }
  static Type out(T value) { return value; }
};

template <>
struct Wire<std::int32_t> {
  using Type = long;
  static std::int32_t in(Type value) { return static_cast<std::int32_t>(value); }
  static Type out(std::int32_t value) { return value; }
};

template <>
struct Wire<bool> {
  using Type = VARIANT_BOOL;
  static bool in(Type value) { return value != VARIANT_FALSE; }
  static Type out(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
};

template <>
struct Wire<Currency> {
  using Type = CURRENCY;
  static Currency in(Type value) { return Currency::fromTenThousandths(value.int64); }
  static Type out(Currency value) {
    CURRENCY money;
    money.int64 = value.tenThousandths();
    return money;
  }
};

template <>
struct Wire<Date> {
  using Type = DATE;
  static Date in(Type value) { return Date::fromSerial(value); }
  static Type out(Date value) { return value.serial(); }
};

template <>
struct Wire<std::string> {
  using Type = BSTR;
  static std::string in(Type value) { return automation::toUtf8(automation::viewOf(value)); }
  /// Given away to the receiver.
  static Type out(const std::string& value) { return automation::newBstr(value); }
};

template <typename Published, typename Ours>
struct EnumerationWire {
  using Type = Published;
  static Ours in(Type value) { return static_cast<Ours>(value); }
  static Type out(Ours value) { return static_cast<Type>(value); }
};
template <>
struct Wire<KT7EmployeeSortType> : EnumerationWire<::KT7EmployeeSortType, KT7EmployeeSortType> {};
template <>
struct Wire<KT7HRAccessLevel> : EnumerationWire<::KT7HRAccessLevel, KT7HRAccessLevel> {};

/// The adapter of an object that a host passes.
template <typename Role>
struct Adapter {};
template <>
struct Adapter<DataObj> {
  using Type = adapters::LateDataObj;
};
template <>
struct Adapter<AppObj> {
  using Type = adapters::LateAppObj;
};
template <>
struct Adapter<ClientObj> {
  using Type = adapters::LateClientObj;
};

template <typename A>
concept HostObject = std::is_same_v<A, DataObj&> || std::is_same_v<A, AppObj&> ||
    std::is_same_v<A, ClientObj&> || std::is_same_v<A, ado::Connection&>;

template <typename A>
inline constexpr bool kByReference =
    std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>;

/// The object of the host behind an adapter, null for none.
inline IDispatch* behind(DataObj& object) {
  return dynamic_cast<adapters::LateDataObj&>(object).get();
}
inline IDispatch* behind(AppObj& object) {
  return dynamic_cast<adapters::LateAppObj&>(object).get();
}
inline IDispatch* behind(ClientObj& object) {
  return dynamic_cast<adapters::LateClientObj&>(object).get();
}
inline IDispatch* behind(ado::Connection& object) {
  return dynamic_cast<adapters::LateConnection&>(object).object().get();
}

/// An adapter for an object that a host passed.
template <typename A>
auto adapted(IDispatch* object) {
  using Role = std::remove_reference_t<A>;
  if constexpr (std::is_same_v<Role, ado::Connection>) {
    return adapters::LateConnection(automation::LateObject(object, "ConObj"));
  } else {
    return typename Adapter<Role>::Type(object);
  }
}

}  // namespace kt7::hrlib
