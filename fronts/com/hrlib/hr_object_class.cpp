#include "fronts/com/hrlib/hr_object_class.h"

namespace kt7::hrlib {

namespace {

template <std::size_t Row>
Variant callOperation(HRObjectClass& self, const Arguments& given) {
  constexpr const auto& kOperation = std::get<Row>(kOperations);
  using Operation = std::remove_cvref_t<decltype(kOperation)>;
  return callLate<typename Operation::Result>(static_cast<typename Operation::Arguments*>(nullptr),
                                              static_cast<kt7::_HRObject&>(self.object()),
                                              Operation::kMember, kOperation.parameters, given);
}

template <std::size_t Row>
Variant refuseOperation(HRObjectClass&, const Arguments&) {
  raiseNotImplemented(kUndescribedOperations[Row].name);
}

template <std::size_t Row>
NamedCall<HRObjectClass> described() {
  const auto& operation = std::get<Row>(kOperations);
  NamedCall<HRObjectClass> call;
  call.name = automation::toWide(operation.name);
  call.id = operation.dispatchId;
  call.get = &callOperation<Row>;
  for (const Parameter& parameter : operation.parameters) {
    call.parameters.push_back(automation::toWide(parameter.name));
  }
  return call;
}

/// Any arguments are taken, named or not, so that the error is the same for all.
template <std::size_t Row>
NamedCall<HRObjectClass> undescribed() {
  NamedCall<HRObjectClass> call;
  call.name = automation::toWide(kUndescribedOperations[Row].name);
  call.id = kUndescribedOperations[Row].dispatchId;
  call.get = &refuseOperation<Row>;
  call.anyArguments = true;
  return call;
}

template <std::size_t... D, std::size_t... U>
std::vector<NamedCall<HRObjectClass>> allCalls(std::index_sequence<D...>,
                                               std::index_sequence<U...>) {
  std::vector<NamedCall<HRObjectClass>> calls;
  calls.reserve(sizeof...(D) + sizeof...(U));
  (calls.push_back(described<D>()), ...);
  (calls.push_back(undescribed<U>()), ...);
  return calls;
}

}  // namespace

std::span<const NamedCall<HRObjectClass>> HRObjectClass::namedCalls() {
  static const std::vector<NamedCall<HRObjectClass>> kCalls =
      allCalls(std::make_index_sequence<std::tuple_size_v<decltype(kOperations)>>(),
               std::make_index_sequence<kUndescribedOperations.size()>());
  return kCalls;
}

}  // namespace kt7::hrlib
