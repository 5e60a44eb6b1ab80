#pragma once

#include <string>

namespace kt7::cli {

/// The code that a person gave, or WrongUse: an empty one, one longer than a code may be, and one
/// with a quote, a backslash, a control character or blanks around it. `what` names it: "branch".
const std::string& checkedCode(const std::string& code, const std::string& what);

}  // namespace kt7::cli
