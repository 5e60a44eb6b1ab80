#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <kt7/contract/data_access.h>
#include <kt7/contract/utility_object.h>

/// Users and what they may see, as the access filters read it. Writing stays in the caller's
/// transaction; giving never takes away and may be repeated.
namespace kt7::host {

/// The alias of the module of payroll and personnel in the tables of rights.
inline constexpr const char* kModuleAlias = "HR";

/// The rights by key that the access filters ask for.
inline constexpr const char* kSeesAllTypes = "HRMASTERALLTYPE";
inline constexpr const char* kSeesAllBranches = "HRMASTERALLBRANCH";

/// A user, an employee type or a branch that a right names is not there, or a right is not held.
class UnknownEntry : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The user who was named has no row.
class UnknownUser : public UnknownEntry {
 public:
  explicit UnknownUser(std::int32_t user)
      : UnknownEntry("there is no user " + std::to_string(user)) {}
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

/// Gives a user rights. UnknownUser or UnknownEntry where the user, a type or a branch has no row;
/// then nothing was written. Codes hold no quotes. Writes KT7TUserRight, KT7TUserEmpType,
/// KT7TUserBranch.
void grantRights(ado::Connection& connection, const Grant& grant, UtilityObject& utility);

/// Rights to be taken away. With welfare or salary of the types only that, else the types
/// altogether.
struct Revocation {
  Grant rights;
  bool administrator = false;
  bool moduleAdministrator = false;
};

/// Takes rights from a user. UnknownEntry where one of them is not held; then nothing was written.
/// Codes hold no quotes. Writes the tables of addUser and grantRights.
void revokeRights(ado::Connection& connection, const Revocation& revocation);

}  // namespace kt7::host
