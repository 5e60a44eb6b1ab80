#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kt7::cli {

/// " (did you mean 'X'?)" for the name most like the word, differing in letter case or a few
/// letters; "" where none is.
std::string didYouMean(std::string_view word, std::span<const std::string_view> names);

}  // namespace kt7::cli
