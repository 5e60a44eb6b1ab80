#pragma once

#include <tuple>
#include <utility>

#include "fronts/com/automation/status.h"
#include "fronts/com/hrlib/early_argument.h"
#include "fronts/com/hrlib/late_argument.h"

namespace kt7::hrlib {

/// Of a call that failed: a result that does not fit its variable is left out, the call's own error
/// is the one to be told.
template <typename Argument>
void giveBackWhatFits(Argument& argument) noexcept {
  try {
    argument.prepare();
  } catch (...) {
    return;
  }
  argument.giveBack();
}

/// Calls a member of the library's object with arguments that stand ready, hands the result to
/// `keep` and stores the by-reference results. What the callee wrote before it failed is stored
/// too. Where it did not fail and a result does not fit its variable, that is the error and nothing
/// is stored.
template <typename Result, typename Object, typename Member, typename Ready, typename Keep>
void callWith(Object& object, Member member, Ready& ready, Keep keep) {
  std::apply(
      [&](auto&... argument) {
        Variables variables;
        (argument.join(variables), ...);
        const auto call = [&]() -> Result {
          try {
            return (object.*member)(argument.value()...);
          } catch (...) {
            (giveBackWhatFits(argument), ...);
            throw;
          }
        };
        if constexpr (std::is_void_v<Result>) {
          call();
          (argument.prepare(), ...);
        } else {
          const Result result = call();
          (argument.prepare(), ...);
          keep(result);
        }
        (argument.giveBack(), ...);
      },
      ready);
}

/// From a slot of the vtable.
template <typename Result, typename... A, typename Object, typename Member, typename Out,
          typename... Given>
HRESULT callEarly(std::tuple<A...>*, const char* source, REFIID interfaceId, Object& object,
                  Member member, Out result, Given... given) {
  if constexpr (!std::is_void_v<Result>) {
    if (result == nullptr) return E_POINTER;
  }
  return automation::guarded(source, interfaceId, [&] {
    std::tuple<EarlyArgument<A>...> ready{given...};
    callWith<Result>(object, member, ready, [&](const auto& value) {
      if constexpr (!std::is_void_v<Result>) *result = Wire<Result>::out(value);
    });
  });
}

/// By name. The parameters say which argument may be left out.
template <typename Result, typename... A, typename Object, typename Member>
automation::Variant callLate(std::tuple<A...>*, Object& object, Member member,
                             const std::array<Parameter, sizeof...(A)>& parameters,
                             const automation::Arguments& given) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    std::tuple<LateArgument<A>...> ready{LateArgument<A>(given, I, parameters[I])...};
    automation::Variant answer;
    callWith<Result>(object, member, ready, [&](const auto& value) { answer = lateResult(value); });
    return answer;
  }
  (std::index_sequence_for<A...>());
}

}  // namespace kt7::hrlib
