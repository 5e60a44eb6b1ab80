#include "base/nearest_name.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"

namespace kt7 {

namespace {

/// Letters to insert, remove, replace or swap with their neighbour to make one word of the other.
std::size_t distanceOf(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    beforeLast = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row.back();
}

}  // namespace

std::string_view nearestName(std::string_view word, std::span<const std::string_view> names) {
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
  return nearest;
}

}  // namespace kt7
