#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "collab/ado.h"
#include "collab/utility_object.h"

/// Users and what they may see, as the access filters read it. Writing stays in the caller's
/// transaction, gives and never takes away, and may be repeated.
namespace kt7::host {

/// The alias of the module of payroll and personnel in the tables of rights.
inline constexpr const char* kModuleAlias = "HR";

/// The rights by key that the access filters ask for.
inline constexpr const char* kSeesAllTypes = "HRMASTERALLTYPE";
inline constexpr const char* kSeesAllBranches = "HRMASTERALLBRANCH";

/// A user, an employee type or a branch that a right names is not there.
class UnknownEntry : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct UserEntry {
  std::int32_t user = 0;
  std::optional<std::string> name;  // none leaves the name as it is
  bool administrator = false;
  bool moduleAdministrator = false;
};

/// Adds a user or completes a known one. Writes KT7TUser, KT7TUserModule.
void addUser(ado::Connection& connection, const UserEntry& entry);

struct Grant {
  std::int32_t user = 0;
  std::vector<std::string> rights;    // keys
  std::vector<std::string> types;     // codes of employee types that the user may see
  bool welfare = false;               // also the welfare of these types
  bool salary = false;                // also their salaries
  std::vector<std::string> branches;  // codes of branches
};

/// Gives a user rights. UnknownEntry where the user, a type or a branch has no row; then nothing
/// was written. Codes hold no quotes. Writes KT7TUserRight, KT7TUserEmpType, KT7TUserBranch.
void grantRights(ado::Connection& connection, const Grant& grant, UtilityObject& utility);

}  // namespace kt7::host
