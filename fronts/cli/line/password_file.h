#pragma once

#include <string>

namespace kt7::cli {

/// The password in the first line of a file or of a pipe. A runtime_error that says what to do for
/// a file that cannot be read or that anybody may read or write, for a folder or a device, and for
/// a line that is empty or no UTF-8 text. No error shows what the file holds.
std::string passwordIn(const std::string& path);

}  // namespace kt7::cli
