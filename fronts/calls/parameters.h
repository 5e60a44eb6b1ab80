#pragma once

#include <span>
#include <string_view>

#include "json_values.h"

namespace kt7::cli {

/// The named parameters of one request, read by the types of the interface. Every refusal is
/// invalid params and names the parameter.
class Parameters {
 public:
  /// Refuses anything but an object whose names are all among the known ones. Refers to both
  /// arguments.
  Parameters(const Json& params, std::span<const std::string_view> known);

  bool has(std::string_view name) const { return find(name) != nullptr; }
  const Json& required(std::string_view name) const;

  template <typename T>
  T get(std::string_view name) const {
    return fromJson<T>(required(name), name);
  }
  /// "", false or 0 where the parameter was left out.
  template <typename T>
  T getOrDefault(std::string_view name) const {
    const Json* value = find(name);
    return value != nullptr ? fromJson<T>(*value, name) : T{};
  }

 private:
  const Json* find(std::string_view name) const;

  const Json& params_;
};

}  // namespace kt7::cli
