#pragma once

#include <span>
#include <string_view>

namespace kt7::schema {

/// A file of host/schema/sample, named after its table, as the build put it into the program.
struct SampleFile {
  std::string_view table;
  std::string_view csv;
};

std::span<const SampleFile> sampleFiles();

}  // namespace kt7::schema
