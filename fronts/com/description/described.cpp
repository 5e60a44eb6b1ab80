#include "described.h"

#include <algorithm>
#include <stdexcept>
#include <type_traits>

#include <kt7/operations.h>
#include <kt7/profile_table.h>

namespace kt7::description {

namespace {

template <typename A>
constexpr bool kIsObject = std::is_same_v<A, DataObj&> || std::is_same_v<A, AppObj&> ||
                           std::is_same_v<A, ClientObj&> || std::is_same_v<A, ado::Connection&>;

template <typename T>
TypeName typeName() {
  if constexpr (std::is_same_v<T, std::string>) {
    return {"BSTR", "std::string"};
  } else if constexpr (std::is_same_v<T, bool>) {
    return {"VARIANT_BOOL", "bool"};
  } else if constexpr (std::is_same_v<T, int16_t>) {
    return {"short", "std::int16_t"};
  } else if constexpr (std::is_same_v<T, int32_t>) {
    return {"long", "std::int32_t"};
  } else if constexpr (std::is_same_v<T, double>) {
    return {"double", "double"};
  } else if constexpr (std::is_same_v<T, float>) {
    return {"float", "float"};
  } else if constexpr (std::is_same_v<T, Currency>) {
    return {"CURRENCY", "kt7::Currency"};
  } else if constexpr (std::is_same_v<T, Date>) {
    return {"DATE", "kt7::Date"};
  } else if constexpr (std::is_same_v<T, DataObj>) {
    return {"IDispatch*", "kt7::DataObj"};
  } else if constexpr (std::is_same_v<T, AppObj>) {
    return {"IDispatch*", "kt7::AppObj"};
  } else if constexpr (std::is_same_v<T, ClientObj>) {
    return {"IDispatch*", "kt7::ClientObj"};
  } else if constexpr (std::is_same_v<T, ado::Connection>) {
    return {"IDispatch*", "kt7::ado::Connection"};
  } else if constexpr (std::is_same_v<T, KT7EmployeeSortType>) {
    return {"KT7EmployeeSortType", "kt7::KT7EmployeeSortType"};
  } else if constexpr (std::is_same_v<T, KT7HRAccessLevel>) {
    return {"KT7HRAccessLevel", "kt7::KT7HRAccessLevel"};
  } else {
    static_assert(std::is_void_v<T>);
    return {};
  }
}

template <typename A>
DescribedParameter parameter(std::string_view name, bool isOptional) {
  using T = std::remove_cvref_t<A>;
  constexpr bool kByReference =
      std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>;
  return {std::string(name), typeName<T>(), kByReference, isOptional,
          std::is_same_v<T, std::string> ? "\"\"" : "0"};
}

template <typename... A>
std::vector<DescribedParameter> parameters(std::tuple<A...>*,
                                           const std::array<Parameter, sizeof...(A)>& names) {
  std::vector<DescribedParameter> all;
  all.reserve(sizeof...(A));
  [[maybe_unused]] const Parameter* next = names.data();
  ((all.push_back(parameter<A>(next->name, next->optional)), ++next), ...);
  return all;
}

/// Sorts what the tables describe into the order of the list of ids; both must name the same.
std::vector<DescribedMember> inOrder(const std::vector<Member>& listed,
                                     const std::vector<DescribedMember>& described) {
  std::vector<DescribedMember> ordered;
  for (const Member& member : listed) {
    const std::size_t before = ordered.size();
    for (const DescribedMember& one : described) {
      if (one.name != member.name) continue;
      ordered.push_back(one);
      ordered.back().dispatchId = member.dispatchId;
    }
    if (ordered.size() == before) {
      throw std::runtime_error(member.name + " has an id and is not described");
    }
  }
  if (ordered.size() != described.size()) {
    throw std::runtime_error("a described member has no id: add it at the end of the list of ids");
  }
  return ordered;
}

}  // namespace

std::vector<DescribedMember> describeOperations(const Ids& ids) {
  std::vector<DescribedMember> described;
  const auto add = [&](const auto& operation) {
    using Row = std::remove_cvref_t<decltype(operation)>;
    DescribedMember member;
    member.name = operation.name;
    member.dispatchId = operation.dispatchId;
    member.parameters =
        parameters(static_cast<typename Row::Arguments*>(nullptr), operation.parameters);
    member.result = typeName<typename Row::Result>();
    member.row = described.size();
    described.push_back(member);
  };
  std::apply([&](const auto&... operation) { (add(operation), ...); }, kOperations);

  const std::vector<DescribedMember> ordered = inOrder(ids.members.at("_HRObject"), described);
  for (const DescribedMember& member : ordered) {
    if (described[member.row].dispatchId != member.dispatchId) {
      throw std::runtime_error(member.name + ": the table of operations gives another id");
    }
  }
  for (const UndescribedOperation& operation : kUndescribedOperations) {
    const std::vector<Member>& reserved = ids.reserved.at("_HRObject");
    const auto fits = [&](const Member& member) {
      return member.name == operation.name && member.dispatchId == operation.dispatchId;
    };
    if (std::none_of(reserved.begin(), reserved.end(), fits)) {
      throw std::runtime_error(std::string(operation.name) + " has no reserved id");
    }
  }
  return ordered;
}

std::vector<DescribedMember> describeProfile(const Ids& ids) {
  std::vector<DescribedMember> described;
  std::size_t row = 0;
  const auto addProperty = [&](const auto& property) {
    using Type = typename std::remove_cvref_t<decltype(property)>::Type;
    DescribedMember member{
        MemberKind::PropertyGet, std::string(property.name), 0, {}, typeName<Type>(), row, true};
    described.push_back(member);
    if (property.set != nullptr) {
      member.kind = MemberKind::PropertyPut;
      member.isConst = false;
      member.parameters = {parameter<Type>("value", false)};
      member.result = {};
      described.push_back(member);
    }
    ++row;
  };
  std::apply([&](const auto&... property) { (addProperty(property), ...); }, kProfileProperties);

  row = 0;
  const auto addMethod = [&](const auto& method) {
    using Row = std::remove_cvref_t<decltype(method)>;
    described.push_back(
        {MemberKind::Method, std::string(method.name), 0,
         parameters(static_cast<typename Row::Arguments*>(nullptr), method.parameters),
         typeName<typename Row::Result>(), row++, Row::kIsConst});
  };
  std::apply([&](const auto&... method) { (addMethod(method), ...); }, kProfileMethods);
  return inOrder(ids.members.at("_EmployeeObject"), described);
}

std::vector<Enumeration> describeEnumerations() {
  return {{"KT7PayType",
           {{"KT7PayTypeNormal", KT7PayTypeNormal}, {"KT7PayTypeHoliday", KT7PayTypeHoliday}}},
          {"KT7EmployeeSortType",
           {{"KT7EmployeeSortTypeCode", KT7EmployeeSortTypeCode},
            {"KT7EmployeeSortTypeDivName", KT7EmployeeSortTypeDivName},
            {"KT7EmployeeSortTypeCost", KT7EmployeeSortTypeCost}}},
          {"KT7HolidayType",
           {{"KT7HolidayTypeSun", KT7HolidayTypeSun},
            {"KT7HolidayTypeHoliday", KT7HolidayTypeHoliday}}},
          {"KT7HRAccessLevel",
           {{"KT7HRAccessLevelUser", KT7HRAccessLevelUser},
            {"KT7HRAccessLevelWelfare", KT7HRAccessLevelWelfare},
            {"KT7HRAccessLevelAdmin", KT7HRAccessLevelAdmin}}}};
}

}  // namespace kt7::description
