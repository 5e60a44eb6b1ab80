#pragma once

#include <string>

namespace kt7::cli {

/// The code that a person gave to be kept, or WrongUse: an empty one, one longer than a code may
/// be, and one with a quote, a backslash, blanks around it, the mark of a date, or a character that
/// is not seen as it stands. `what` names it: "branch".
const std::string& newCode(const std::string& code, const std::string& what);

/// The code that a person gave to find what stands under it, or WrongUse for one that no statement
/// can carry. What came in by other ways is found, to be looked at and renamed.
const std::string& knownCode(const std::string& code, const std::string& what);

/// The text that a person gave for that column of a table, or WrongUse where an engine would not
/// keep it, and where it is no plain text in one line. `what` names it: "user's name".
const std::string& newText(const std::string& text, const std::string& what,
                           const std::string& table, const std::string& column);

}  // namespace kt7::cli
