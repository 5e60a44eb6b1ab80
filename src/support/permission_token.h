#pragma once

#include <cstdint>
#include <string>

#include <kt7/contract/utility_object.h>

namespace kt7 {

/// The token that grants a user a right on an employee type: it fits that user and type alone, so
/// that a copied token does not hold. Stored by the host's user administration.
std::string permissionToken(std::int32_t userID, const std::string& typeCode,
                            UtilityObject& utility);

}  // namespace kt7
