#include "support/permission_token.h"

namespace kt7 {

std::string permissionToken(std::int32_t userID, const std::string& typeCode,
                            UtilityObject& utility) {
  constexpr const char* kKey = "rk81736";
  return utility.EncodeToken(utility.EncodeWithKey(std::to_string(userID) + "#" + typeCode, kKey));
}

}  // namespace kt7
