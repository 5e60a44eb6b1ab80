#pragma once

#include "fronts/com/automation/late_object.h"

namespace kt7::adapters {

/// What a member of the host's object answers, as T by the automation rules.
template <typename T, typename... A>
T answered(const automation::LateObject& object, const wchar_t* member, const A&... arguments) {
  return automation::fromVariant<T>(object.call(member, arguments...).raw());
}

}  // namespace kt7::adapters
