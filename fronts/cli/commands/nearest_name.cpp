#include "nearest_name.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "base/text.h"

namespace kt7::cli {

namespace {

/// Letters to insert, remove or replace to make one word of the other.
std::size_t distanceOf(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string didYouMean(std::string_view word, std::span<const std::string_view> names) {
  constexpr std::size_t kLongestWord = 100;
  if (word.size() > kLongestWord) return {};
  const std::string wanted = lowerCase(word);
  std::string_view nearest;
  std::size_t least = word.size() / 3 + 1;
  for (const std::string_view name : names) {
    const std::size_t distance = distanceOf(wanted, lowerCase(name));
    if (distance < least) {
      least = distance;
      nearest = name;
    }
  }
  if (nearest.empty()) return {};
  return " (did you mean '" + std::string(nearest) + "'?)";
}

}  // namespace kt7::cli
