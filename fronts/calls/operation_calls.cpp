#include "operation_calls.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <utility>
#include <vector>

#include <kt7/error.h>
#include <kt7/operations.h>
#include "parameters.h"

namespace kt7::cli {

namespace {

constexpr std::size_t kDescribed = std::tuple_size_v<decltype(kOperations)>;

template <typename A>
concept SessionObject = std::same_as<A, DataObj&> || std::same_as<A, AppObj&> ||
    std::same_as<A, ClientObj&> || std::same_as<A, ado::Connection&>;

template <typename A>
constexpr bool kOut = std::is_lvalue_reference_v<A> &&
                      !std::is_const_v<std::remove_reference_t<A>> && !SessionObject<A>;

/// What stands for an argument during the call: the session's object itself, or a value of its own.
template <typename A>
using Held = std::conditional_t<SessionObject<A>, A, std::remove_cvref_t<A>>;

template <typename A>
Held<A> argument(const Parameter& parameter, const Parameters& given,
                 const OperationObjects& objects) {
  if constexpr (std::same_as<A, DataObj&>) {
    return objects.dataObj;
  } else if constexpr (std::same_as<A, AppObj&>) {
    return objects.appObj;
  } else if constexpr (std::same_as<A, ClientObj&>) {
    return objects.clientObj;
  } else if constexpr (std::same_as<A, ado::Connection&>) {
    return objects.dataObj.Connection();
  } else if (parameter.optional) {
    return given.getOrDefault<Held<A>>(parameter.name);
  } else {
    return given.get<Held<A>>(parameter.name);
  }
}

template <typename A>
void keepOut(Json& out, const Parameter& parameter, const Held<A>& held) {
  if constexpr (kOut<A>) out[std::string(parameter.name)] = toJson(held);
}

/// The names that a request may carry: all but the session's objects.
template <typename... A>
std::vector<std::string_view> namedParameters(const std::array<Parameter, sizeof...(A)>& parameters,
                                              std::tuple<A...>*) {
  std::vector<std::string_view> names;
  std::size_t at = 0;
  ((SessionObject<A> ? void() : names.push_back(parameters[at].name), ++at), ...);
  return names;
}

template <auto Member, typename... A, std::size_t... I>
Json callMember(const Operation<Member>& operation, const Parameters& given,
                const OperationObjects& objects, std::tuple<A...>*, std::index_sequence<I...>) {
  std::tuple<Held<A>...> held{argument<A>(operation.parameters[I], given, objects)...};
  Json value;
  if constexpr (std::is_void_v<typename Operation<Member>::Result>) {
    (objects.hrObject.*Member)(std::get<I>(held)...);
  } else {
    value = toJson((objects.hrObject.*Member)(std::get<I>(held)...));
  }
  Json out = Json::object();
  (keepOut<A>(out, operation.parameters[I], std::get<I>(held)), ...);
  return Json{{"value", std::move(value)}, {"out", std::move(out)}};
}

template <std::size_t Row>
Json callDescribed(const Json& params, const OperationObjects& objects) {
  constexpr const auto& kOperation = std::get<Row>(kOperations);
  using Arguments = typename std::remove_cvref_t<decltype(kOperation)>::Arguments;
  constexpr Arguments* kTypes = nullptr;
  static const std::vector<std::string_view> names = namedParameters(kOperation.parameters, kTypes);
  return callMember(kOperation, Parameters(params, names), objects, kTypes,
                    std::make_index_sequence<std::tuple_size_v<Arguments>>());
}

template <std::size_t Row>
Json callUndescribed(const Json&, const OperationObjects&) {
  raiseNotImplemented(kUndescribedOperations[Row].name);
}

template <std::size_t... D, std::size_t... U>
constexpr auto allCalls(std::index_sequence<D...>, std::index_sequence<U...>) {
  return std::array<OperationCall, sizeof...(D) + sizeof...(U)>{
      OperationCall{std::get<D>(kOperations).name, &callDescribed<D>}...,
      OperationCall{kUndescribedOperations[U].name, &callUndescribed<U>}...};
}

constexpr auto kCalls = allCalls(std::make_index_sequence<kDescribed>(),
                                 std::make_index_sequence<kUndescribedOperations.size()>());

}  // namespace

std::span<const OperationCall> operationCalls() { return kCalls; }

const OperationCall* findOperation(std::string_view name) {
  const auto at = std::find_if(kCalls.begin(), kCalls.end(),
                               [&](const OperationCall& call) { return call.name == name; });
  return at != kCalls.end() ? &*at : nullptr;
}

}  // namespace kt7::cli
