#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include <kt7/error.h>

namespace kt7::fuzz {

/// What a program does with one text.
void enter(std::string_view text);

/// Ends the program, so that the text is kept as a finding, where something does not hold.
inline void require(bool holds, const char* what, const std::string& detail = {}) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n%s\n", what, detail.c_str());
  std::abort();
}

/// What `read` answers; nothing where it refuses by an error of the library.
template <class Read>
auto unlessRefused(Read read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const Error&) {
    return std::nullopt;
  }
}

}  // namespace kt7::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kt7::fuzz::enter({reinterpret_cast<const char*>(data), size});
  return 0;
}
