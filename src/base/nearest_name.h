#pragma once

#include <span>
#include <string_view>

namespace kt7 {

/// The name most like the word, differing in letter case or a few letters; "" where none is.
std::string_view nearestName(std::string_view word, std::span<const std::string_view> names);

}  // namespace kt7
