#pragma once

#include "fronts/cli/line/options.h"
#include "fronts/cli/rpc/session.h"

namespace kt7::cli {

/// What a session needs to know; its messages go to the console's error stream.
SessionOptions sessionOptions(const DatabaseOptions& database, const WorkplaceOptions& workplace,
                              Console& console);

}  // namespace kt7::cli
