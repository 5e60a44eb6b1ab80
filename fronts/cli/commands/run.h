#pragma once

#include "command.h"

namespace kt7::cli {

/// The command kt7hr: exit code 0 done, 1 failed, 2 wrong use. A failure is one line on
/// console.err that begins with "kt7hr: ".
int run(int argc, const char* const* argv, Console& console);

}  // namespace kt7::cli
