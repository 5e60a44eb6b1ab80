#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <kt7/contract/platform.h>

namespace kt7::host {

/// A code with the name of what it stands for, "" where the company has no such entry.
struct NamedCode {
  std::string code;
  std::string name;
};

/// A stored token that does not open anything, and whose it is.
struct DeadToken {
  std::string typeCode;
  bool ofSalary = false;    // else of welfare
  bool ownerKnown = false;  // the token of another user or type
  std::int32_t ownerUser = 0;
  std::string ownerType;
};

/// What a user may see, as the access filters and the salary question themselves answer it.
struct UserView {
  std::int32_t user = 0;
  std::string name;
  bool registered = false;  // has a row of its own
  bool hasRights = false;   // some table of rights names the user
  bool administrator = false;
  bool moduleAdministrator = false;
  bool allTypes = false;     // by right, whatever the types below
  bool allBranches = false;  // by right, whatever the branches below
  std::vector<std::string> otherRights;
  std::vector<NamedCode> types;         // whose employees the user may see
  std::vector<NamedCode> welfareTypes;  // whose welfare lists show
  std::vector<NamedCode> salaryTypes;   // whose salaries lists show
  std::vector<NamedCode> openSalaries;  // whose salaries the user may see one by one
  std::vector<NamedCode> branches;      // granted one by one
  std::vector<DeadToken> deadTokens;
  std::int64_t employeesSeen = 0;
  std::int64_t employees = 0;
};

/// Reads the users' tables, the employee types and the branches; users and rights in them are the
/// module's own.
UserView readUserView(Platform& platform, const std::string& connectionString, std::int32_t user);

}  // namespace kt7::host
