#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "json_values.h"

namespace kt7::cli {

/// A text that is not read as JSON: where it breaks off, or that it nests too deep.
class UnreadableJson : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The value that the whole text writes. UnreadableJson for a text that is no JSON or that nests
/// deeper than any request does: whatever walks through the value may then call itself.
Json parseJson(std::string_view text);

}  // namespace kt7::cli
