#pragma once

#include <cstdint>
#include <string>

#include "fronts/cli/line/console.h"

namespace kt7::cli {

/// A bar on the error stream where that is a terminal, else nothing; gone when it is destroyed.
class ProgressBar {
 public:
  explicit ProgressBar(Console& console) : console_(console) {}
  ~ProgressBar() { clear(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// "[####    ] 12 of 40 rows"
  void show(std::int64_t done, std::int64_t total, const std::string& what);
  void clear();

 private:
  Console& console_;
  bool shown_ = false;
};

}  // namespace kt7::cli
