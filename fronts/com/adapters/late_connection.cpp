#include "fronts/com/adapters/late_connection.h"

#include <kt7/error.h>

namespace kt7::adapters {

Variant argumentOf(const ado::ActiveConnection& on) {
  if (on.connection() == nullptr) return std::string(on.connectionString());
  const auto* late = dynamic_cast<const LateConnection*>(on.connection());
  if (late == nullptr) raiseTypeMismatch("a connection that is no object of the host");
  return late->object().get();
}

}  // namespace kt7::adapters
