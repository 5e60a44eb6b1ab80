#pragma once

#include <string>
#include <string_view>

namespace kt7 {

/// The marker that opens and closes a date literal in the library's SQL; PrepareSql resolves it.
inline constexpr std::string_view kDateMarker = "#$";

/// "#$" + text + "#$"
inline std::string dateLiteral(const std::string& dateText) {
  std::string literal;
  literal.reserve(dateText.size() + 2 * kDateMarker.size());
  return literal.append(kDateMarker).append(dateText).append(kDateMarker);
}

}  // namespace kt7
