#pragma once

#include <span>
#include <string_view>

namespace kt7::cli {

/// A file of fronts/cli/reference, named without its ending, as the build put it into the program.
struct ReferenceFile {
  std::string_view name;
  std::string_view text;
};

std::span<const ReferenceFile> referenceFiles();

}  // namespace kt7::cli
