#pragma once

#include <string>

namespace kt7::automation {

/// Writes a message that nobody can see as one line: to the debugger, and to standard error where
/// the process has one, as characters to a console, as UTF-8 to anything else. Never an error.
void writeOneLine(std::wstring text);

}  // namespace kt7::automation
