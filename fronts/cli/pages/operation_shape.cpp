#include "operation_shape.h"

#include <concepts>

#include <kt7/employee_object.h>
#include <kt7/host/platform.h>
#include <kt7/operations.h>
#include <kt7/profile_table.h>
#include "fronts/calls/json_values.h"

namespace kt7::cli {

namespace {

/// What a type is called in the reference and in C++, and what an optional parameter of it is when
/// it is left out.
struct TypeNames {
  std::string_view published;
  std::string_view cpp;
  std::string_view leftOut;
};

template <typename T>
constexpr TypeNames kNames{};
template <>
constexpr TypeNames kNames<void>{"nothing", "void", ""};
template <>
constexpr TypeNames kNames<std::string>{"text", "std::string", "\"\""};
template <>
constexpr TypeNames kNames<bool>{"boolean", "bool", "false"};
template <>
constexpr TypeNames kNames<double>{"double", "double", "0"};
template <>
constexpr TypeNames kNames<float>{"single", "float", "0"};
template <>
constexpr TypeNames kNames<std::int16_t>{"int16", "int16_t", "0"};
template <>
constexpr TypeNames kNames<std::int32_t>{"int32", "int32_t", "0"};
template <>
constexpr TypeNames kNames<Currency>{"currency", "Currency", "Currency()"};
template <>
constexpr TypeNames kNames<Date>{"date", "Date", "Date()"};
template <>
constexpr TypeNames kNames<KT7EmployeeSortType>{"KT7EmployeeSortType", "KT7EmployeeSortType",
                                                "KT7EmployeeSortTypeCode"};
template <>
constexpr TypeNames kNames<KT7HRAccessLevel>{"KT7HRAccessLevel", "KT7HRAccessLevel",
                                             "KT7HRAccessLevelUser"};
template <>
constexpr TypeNames kNames<DataObj>{"object", "DataObj", ""};
template <>
constexpr TypeNames kNames<AppObj>{"object", "AppObj", ""};
template <>
constexpr TypeNames kNames<ClientObj>{"object", "ClientObj", ""};
template <>
constexpr TypeNames kNames<ado::Connection>{"object", "ado::Connection", ""};

template <typename Argument>
constexpr bool kByReference =
    std::is_lvalue_reference_v<Argument> && !std::is_const_v<std::remove_reference_t<Argument>>;

/// In C++ a parameter whose name equals its type begins in lower case.
std::string nameInCpp(std::string_view name, std::string_view type) {
  std::string own(name);
  if (name == type) own[0] = static_cast<char>(own[0] - 'A' + 'a');
  return own;
}

template <typename Argument>
ParameterShape parameterShape(const Parameter& parameter) {
  constexpr const TypeNames& kType = kNames<std::remove_cvref_t<Argument>>;
  static_assert(!kType.published.empty(), "a type that has no name in the reference");
  constexpr bool kObject = kType.published == "object";
  std::string declaration;
  if (std::is_reference_v<Argument> && !kByReference<Argument>) declaration += "const ";
  declaration.append(kType.cpp).append(std::is_reference_v<Argument> ? "& " : " ");
  declaration += nameInCpp(parameter.name, kType.cpp);
  if (parameter.optional && !kByReference<Argument>) {
    declaration.append(" = ").append(kType.leftOut);
  }
  return {parameter.name, kType.published, declaration, kByReference<Argument> && !kObject,
          parameter.optional};
}

template <typename Row, typename... Arguments>
OperationShape shapeOf(const Row& row, std::tuple<Arguments...>*) {
  constexpr const TypeNames& kResult = kNames<typename Row::Result>;
  OperationShape shape{row.name, kResult.published, std::string(kResult.cpp), {}, false};
  std::size_t at = 0;
  (shape.parameters.push_back(parameterShape<Arguments>(row.parameters[at++])), ...);
  if constexpr (requires { Row::kIsConst; }) shape.isConst = Row::kIsConst;
  return shape;
}

template <typename Table>
std::vector<OperationShape> shapesOf(const Table& table) {
  std::vector<OperationShape> shapes;
  const auto add = [&](const auto& row) {
    using Arguments = typename std::remove_cvref_t<decltype(row)>::Arguments;
    shapes.push_back(shapeOf(row, static_cast<Arguments*>(nullptr)));
  };
  std::apply([&](const auto&... row) { (add(row), ...); }, table);
  return shapes;
}

}  // namespace

const std::vector<OperationShape>& operationShapes() {
  static const std::vector<OperationShape> kShapes = shapesOf(kOperations);
  return kShapes;
}

const std::vector<OperationShape>& profileMethodShapes() {
  static const std::vector<OperationShape> kShapes = shapesOf(kProfileMethods);
  return kShapes;
}

std::vector<PropertyShape> profilePropertyShapes() {
  host::HostPlatform platform;
  const EmployeeObject fresh(platform);
  std::vector<PropertyShape> shapes;
  const auto add = [&](const auto& property) {
    using Type = typename std::remove_cvref_t<decltype(property)>::Type;
    shapes.push_back({property.name, kNames<Type>.published,
                      jsonText(toJson((fresh.*property.get)())), property.set == nullptr});
  };
  std::apply([&](const auto&... property) { (add(property), ...); }, kProfileProperties);
  return shapes;
}

std::string declarationOf(const OperationShape& shape) {
  constexpr std::size_t kWidth = 100;
  constexpr std::string_view kIndent = "    ";
  std::string text;
  std::string line = shape.resultDeclaration + " " + std::string(shape.name) + "(";
  for (const ParameterShape& parameter : shape.parameters) {
    const bool first = &parameter == &shape.parameters.front();
    const bool last = &parameter == &shape.parameters.back();
    const std::string word = parameter.declaration + (last ? "" : ",");
    if (line.size() + word.size() + 3 > kWidth) {
      text += line + "\n";
      line = std::string(kIndent) + word;
    } else {
      line += (first ? "" : " ") + word;
    }
  }
  return text + line + (shape.isConst ? ") const;" : ");");
}

}  // namespace kt7::cli
