#pragma once

#include <ostream>

#include "described.h"

namespace kt7::description {

/// The slots of _HRObject as members of the class that implements them.
void writeOperationSlots(std::ostream& out, const Ids& ids);
/// The library's own interface as members that call the slots of an automation object.
void writeSelfCalls(std::ostream& out, const Ids& ids);
/// The slots of _EmployeeObject.
void writeProfileSlots(std::ostream& out, const Ids& ids);
/// The library's own interface of a profile as members that call these slots.
void writeProfileSelfCalls(std::ostream& out, const Ids& ids);
/// The dispatch ids of the profile's properties and methods, in the order of their tables.
void writeProfileIds(std::ostream& out, const Ids& ids);
/// Names and identities of the library, its classes and interfaces.
void writeIdentities(std::ostream& out, const Ids& ids);

}  // namespace kt7::description
