#include "fronts/com/hrlib/employee_object_class.h"

namespace kt7::hrlib {

namespace {

using Call = NamedCall<EmployeeObjectClass>;

template <std::size_t Row>
Variant getProperty(EmployeeObjectClass& self, const Arguments&) {
  return lateResult((self.object().*std::get<Row>(kProfileProperties).get)());
}

template <std::size_t Row>
void putProperty(EmployeeObjectClass& self, const VARIANT& value) {
  constexpr const auto& kProperty = std::get<Row>(kProfileProperties);
  using Type = typename std::remove_cvref_t<decltype(kProperty)>::Type;
  (self.object().*kProperty.set)(automation::fromVariant<Type>(value));
}

template <std::size_t Row>
Variant callMethod(EmployeeObjectClass& self, const Arguments& given) {
  constexpr const auto& kMethod = std::get<Row>(kProfileMethods);
  using Method = std::remove_cvref_t<decltype(kMethod)>;
  return callLate<typename Method::Result>(static_cast<typename Method::Arguments*>(nullptr),
                                           self.object(), Method::kMember, kMethod.parameters,
                                           given);
}

template <std::size_t Row>
Call property() {
  constexpr const auto& kProperty = std::get<Row>(kProfileProperties);
  Call call;
  call.name = automation::toWide(kProperty.name);
  call.id = kPropertyIds[Row];
  call.get = &getProperty<Row>;
  if constexpr (kProperty.set != nullptr) call.put = &putProperty<Row>;
  return call;
}

template <std::size_t Row>
Call method() {
  constexpr const auto& kMethod = std::get<Row>(kProfileMethods);
  Call call;
  call.name = automation::toWide(kMethod.name);
  call.id = kMethodIds[Row];
  call.get = &callMethod<Row>;
  for (const Parameter& parameter : kMethod.parameters) {
    call.parameters.push_back(automation::toWide(parameter.name));
  }
  return call;
}

template <std::size_t... P, std::size_t... M>
std::vector<Call> allCalls(std::index_sequence<P...>, std::index_sequence<M...>) {
  std::vector<Call> calls;
  calls.reserve(sizeof...(P) + sizeof...(M));
  (calls.push_back(property<P>()), ...);
  (calls.push_back(method<M>()), ...);
  return calls;
}

}  // namespace

std::span<const Call> EmployeeObjectClass::namedCalls() {
  static const std::vector<Call> kCalls =
      allCalls(std::make_index_sequence<std::tuple_size_v<decltype(kProfileProperties)>>(),
               std::make_index_sequence<std::tuple_size_v<decltype(kProfileMethods)>>());
  return kCalls;
}

}  // namespace kt7::hrlib
