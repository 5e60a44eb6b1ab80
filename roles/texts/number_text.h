#pragma once

#include <string_view>

namespace kt7::roles {

/// The number written in a text: blanks around it are ignored, "," may group the digits before the
/// point, a decimal exponent may follow. 0 for the empty text and for a text that is no number;
/// overflow for one that no double holds.
double numberInText(std::string_view text);

}  // namespace kt7::roles
