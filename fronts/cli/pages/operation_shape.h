#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kt7::cli {

/// A parameter as the table of operations has it.
struct ParameterShape {
  std::string_view name;
  std::string_view type;    // "text", "int16", ...; "object" for what the session supplies
  std::string declaration;  // in C++, with its default
  bool inOut = false;
  bool optional = false;

  bool isObject() const { return type == "object"; }
};

/// An operation of HRObject, or a method of EmployeeObject, as its table has it.
struct OperationShape {
  std::string_view name;
  std::string_view result;  // a type, or "nothing"
  std::string resultDeclaration;
  std::vector<ParameterShape> parameters;
  bool isConst = false;
};

/// In the order of the table of operations.
const std::vector<OperationShape>& operationShapes();
/// In the order of the table of the profile's methods.
const std::vector<OperationShape>& profileMethodShapes();

/// A property of the profile, with the value that it has in a new object as JSON.
struct PropertyShape {
  std::string_view name;
  std::string_view type;
  std::string newValue;
  bool readOnly = false;
};

/// In the order of the table of the profile.
std::vector<PropertyShape> profilePropertyShapes();

/// The declaration in C++, over several lines where it is long.
std::string declarationOf(const OperationShape& shape);

}  // namespace kt7::cli
