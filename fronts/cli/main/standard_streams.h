#pragma once

#include <optional>

/// Descriptors 0, 1 and 2 as whoever starts the command left them.
namespace kt7::cli {

/// Puts the null device on each of them that is closed, the wrong way round: reading and writing
/// fail as they would on a closed one, and no file or database connection that is opened later gets
/// its number. To be called before anything else opens a file.
void keepStandardDescriptors();

/// Cells of a line of the terminal that takes the output; none where none does or it does not know.
std::optional<int> outputWidth();

}  // namespace kt7::cli
