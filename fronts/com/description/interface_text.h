#pragma once

#include <ostream>

#include "described.h"

namespace kt7::description {

/// The type library in the interface definition language.
void writeInterfaceDescription(std::ostream& out, const Ids& ids);

}  // namespace kt7::description
