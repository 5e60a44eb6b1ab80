#pragma once

#include <string>
#include <vector>

#include "ids.h"

namespace kt7::description {

/// How a type is written: in the interface description (and in its C++ header), and in the library.
struct TypeName {
  std::string automation;
  std::string library;
};

struct DescribedParameter {
  std::string name;
  TypeName type;
  bool byReference = false;
  bool optional = false;
  std::string defaultValue;
};

enum class MemberKind { Method, PropertyGet, PropertyPut };

/// One slot of a vtable.
struct DescribedMember {
  MemberKind kind = MemberKind::Method;
  std::string name;
  int dispatchId = 0;
  std::vector<DescribedParameter> parameters;
  TypeName result;      // empty for none
  std::size_t row = 0;  // in the table that describes it: operations, properties or methods
  bool isConst = false;
};

struct Enumerator {
  std::string name;
  int value = 0;
};

struct Enumeration {
  std::string name;
  std::vector<Enumerator> enumerators;
};

/// The members in the order of the vtable. Raise std::runtime_error where the list of ids and the
/// table of operations differ.
std::vector<DescribedMember> describeOperations(const Ids& ids);
std::vector<DescribedMember> describeProfile(const Ids& ids);
std::vector<Enumeration> describeEnumerations();

}  // namespace kt7::description
