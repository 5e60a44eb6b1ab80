#pragma once

#include <istream>
#include <map>
#include <string>
#include <vector>

namespace kt7::description {

struct Member {
  std::string name;
  int dispatchId = 0;
};

/// The fixed identities of the type library, as the committed file lists them.
struct Ids {
  std::string libraryVersion;
  /// Of the library, its interfaces, classes and enumerations, by name.
  std::map<std::string, std::string> guids;
  /// By interface, in the order of its vtable.
  std::map<std::string, std::vector<Member>> members;
  /// By interface: known by name, without a slot.
  std::map<std::string, std::vector<Member>> reserved;

  /// Raises std::runtime_error where the file names none.
  const std::string& guid(const std::string& name) const;
};

/// Raises std::runtime_error with the line that cannot be read, or that repeats an id.
Ids readIds(std::istream& file);

}  // namespace kt7::description
