#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace kt7::test {

/// The cases of a file below tests/: groups of lines with an empty line between two. Lines that
/// begin with "# " are for the reader.
inline std::vector<std::vector<std::string>> casesOf(const std::string& file) {
  std::ifstream stream(std::string(KT7_TEST_FOLDER) + "/" + file);
  EXPECT_TRUE(stream.good()) << file;
  std::vector<std::vector<std::string>> cases;
  bool open = false;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("# ")) continue;
    if (!open && !line.empty()) cases.emplace_back();
    open = !line.empty();
    if (open) cases.back().push_back(line);
  }
  EXPECT_FALSE(cases.empty()) << file;
  return cases;
}

}  // namespace kt7::test
