#pragma once

#include <windows.h>

#include <span>
#include <string_view>
#include <vector>

#include "fronts/com/automation/by_reference.h"
#include "fronts/com/automation/variant.h"

namespace kt7::automation {

/// The arguments of one Invoke, by position: given in order or by name, where the id of a
/// parameter's name is its position. Refers to what the caller passed.
class Arguments {
 public:
  /// Refuses more than `most` arguments (450) and a name that is none of them (448).
  Arguments(const DISPPARAMS& given, std::size_t most);

  /// False for an argument that was left out.
  bool has(std::size_t position) const { return !isMissing(slots_[position]); }
  std::size_t most() const { return slots_.size(); }
  /// Null where it was left out.
  VARIANT* at(std::size_t position) const { return slots_[position]; }
  /// Refuses an argument that was left out (449) unless `optional`: then T's zero.
  template <typename T>
  T get(std::size_t position, bool optional = false) const {
    if (!has(position)) {
      if (optional) return T{};
      raiseMissing(position);
    }
    return fromVariant<T>(*slots_[position]);
  }
  /// As objectIn; null where it was left out.
  ComPtr<IDispatch> object(std::size_t position) const {
    return has(position) ? objectIn(*slots_[position]) : nullptr;
  }
  /// A by-reference result as the caller's variable holds it, and storing it there. Neither does
  /// anything for an argument that was left out.
  Variant converted(std::size_t position, Variant value) const {
    return has(position) ? convertedFor(*slots_[position], std::move(value)) : Variant();
  }
  /// As variableOf; null where it was left out.
  const void* variable(std::size_t position) const {
    return has(position) ? variableOf(*slots_[position]) : nullptr;
  }
  void store(std::size_t position, Variant converted) const noexcept {
    if (has(position)) storeByReference(*slots_[position], std::move(converted));
  }

  [[noreturn]] static void raiseMissing(std::size_t position);

 private:
  std::vector<VARIANT*> slots_;
};

/// The value that a property put carries; null for a call that carries none.
VARIANT* putValue(const DISPPARAMS& given);

}  // namespace kt7::automation
