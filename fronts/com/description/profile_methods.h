#pragma once

#include <array>
#include <string_view>
#include <tuple>

#include <kt7/employee_interface.h>
#include <kt7/operations.h>

namespace kt7 {

template <typename Member>
struct ProfileMemberTraits;

template <typename R, typename... A>
struct ProfileMemberTraits<R (_EmployeeObject::*)(A...)> {
  static constexpr bool kIsConst = false;
  using Result = R;
  using Arguments = std::tuple<A...>;
};

template <typename R, typename... A>
struct ProfileMemberTraits<R (_EmployeeObject::*)(A...) const>
    : ProfileMemberTraits<R (_EmployeeObject::*)(A...)> {
  static constexpr bool kIsConst = true;
};

/// A method of the pay profile with the published names of its parameters; the types come from the
/// member itself.
template <auto Member>
struct ProfileMethod {
  using Result = typename ProfileMemberTraits<decltype(Member)>::Result;
  using Arguments = typename ProfileMemberTraits<decltype(Member)>::Arguments;
  static constexpr auto kMember = Member;
  static constexpr bool kIsConst = ProfileMemberTraits<decltype(Member)>::kIsConst;

  std::string_view name;
  std::array<Parameter, std::tuple_size_v<Arguments>> parameters;
};

/// The methods of the pay profile beside its properties.
inline constexpr std::tuple kProfileMethods{
    ProfileMethod<&_EmployeeObject::SetTypeCode>{"SetTypeCode",
                                                 {Parameter("vData"), Parameter("DataObj")}},
    ProfileMethod<&_EmployeeObject::SETSALARY>{
        "SETSALARY", {Parameter("iSalary1"), Parameter("iSalary2"), Parameter("QuantityCalc")}},
    ProfileMethod<&_EmployeeObject::CalcMethod>{"CalcMethod", {}},
    ProfileMethod<&_EmployeeObject::CalcMethodSalary>{"CalcMethodSalary", {}}};

}  // namespace kt7
