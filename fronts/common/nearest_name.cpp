#include "nearest_name.h"

#include "base/nearest_name.h"

namespace kt7::cli {

std::string didYouMean(std::string_view word, std::span<const std::string_view> names) {
  const std::string_view nearest = nearestName(word, names);
  if (nearest.empty()) return {};
  return " (did you mean '" + std::string(nearest) + "'?)";
}

}  // namespace kt7::cli
