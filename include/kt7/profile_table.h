#pragma once

#include <array>
#include <string_view>
#include <tuple>
#include <type_traits>

#include <kt7/employee_interface.h>
#include <kt7/operations.h>

namespace kt7 {

template <typename T>
using PropertyArgument = std::conditional_t<std::is_same_v<T, std::string>, const std::string&, T>;

/// A property of the pay profile: its published name, type, getter and setter (null: read only).
template <typename T>
struct ProfileProperty {
  using Type = T;
  std::string_view name;
  T (_EmployeeObject::*get)() const;
  void (_EmployeeObject::*set)(PropertyArgument<T>);
};

template <typename T>
constexpr ProfileProperty<T> property(std::string_view name, T (_EmployeeObject::*get)() const,
                                      void (_EmployeeObject::*set)(PropertyArgument<T>)) {
  return {name, get, set};
}

template <typename T>
constexpr ProfileProperty<T> readOnly(std::string_view name, T (_EmployeeObject::*get)() const) {
  return {name, get, nullptr};
}

/// The profile's properties in their published order; every front is generated from it.
inline constexpr std::tuple kProfileProperties{
    property<double>("Salary1", &_EmployeeObject::Salary1, &_EmployeeObject::Salary1),
    property<double>("Salary2", &_EmployeeObject::Salary2, &_EmployeeObject::Salary2),
    property<double>("HourFullRate1", &_EmployeeObject::HourFullRate1,
                     &_EmployeeObject::HourFullRate1),
    property<double>("HourRate1", &_EmployeeObject::HourRate1, &_EmployeeObject::HourRate1),
    property<double>("HourRate2", &_EmployeeObject::HourRate2, &_EmployeeObject::HourRate2),
    property<double>("PercentGroup1", &_EmployeeObject::PercentGroup1,
                     &_EmployeeObject::PercentGroup1),
    property<double>("PercentGroup2", &_EmployeeObject::PercentGroup2,
                     &_EmployeeObject::PercentGroup2),
    property<float>("SalFactor", &_EmployeeObject::SalFactor, &_EmployeeObject::SalFactor),
    property<std::string>("Code", &_EmployeeObject::Code, &_EmployeeObject::Code),
    property<std::string>("FullName", &_EmployeeObject::FullName, &_EmployeeObject::FullName),
    property<std::string>("Barcode", &_EmployeeObject::Barcode, &_EmployeeObject::Barcode),
    property<std::string>("No", &_EmployeeObject::No, &_EmployeeObject::No),
    readOnly<std::string>("TypeCode", &_EmployeeObject::TypeCode),
    property<std::string>("TypeName", &_EmployeeObject::TypeName, &_EmployeeObject::TypeName),
    property<double>("HourPerDay", &_EmployeeObject::HourPerDay, &_EmployeeObject::HourPerDay),
    property<double>("HourPerMonth", &_EmployeeObject::HourPerMonth,
                     &_EmployeeObject::HourPerMonth),
    property<int16_t>("DayPerMonth", &_EmployeeObject::DayPerMonth, &_EmployeeObject::DayPerMonth),
    property<int16_t>("DayPerWeek", &_EmployeeObject::DayPerWeek, &_EmployeeObject::DayPerWeek),
    property<double>("HourPerWeek", &_EmployeeObject::HourPerWeek, &_EmployeeObject::HourPerWeek),
    property<double>("HolderTaxPerMonth", &_EmployeeObject::HolderTaxPerMonth,
                     &_EmployeeObject::HolderTaxPerMonth),
    property<double>("CalculateSalary1", &_EmployeeObject::CalculateSalary1,
                     &_EmployeeObject::CalculateSalary1),
    property<double>("CalculateSalary2", &_EmployeeObject::CalculateSalary2,
                     &_EmployeeObject::CalculateSalary2),
    property<double>("CalculateQuantity", &_EmployeeObject::CalculateQuantity,
                     &_EmployeeObject::CalculateQuantity),
    property<int16_t>("DayPerPeriod", &_EmployeeObject::DayPerPeriod,
                      &_EmployeeObject::DayPerPeriod),
    property<int16_t>("DayPerYear", &_EmployeeObject::DayPerYear, &_EmployeeObject::DayPerYear),
    property<double>("HourPerPeriod", &_EmployeeObject::HourPerPeriod,
                     &_EmployeeObject::HourPerPeriod),
    property<double>("HourPerYear", &_EmployeeObject::HourPerYear, &_EmployeeObject::HourPerYear),
    property<int16_t>("SalaryType", &_EmployeeObject::SalaryType, &_EmployeeObject::SalaryType),
    property<int16_t>("CalculateType", &_EmployeeObject::CalculateType,
                      &_EmployeeObject::CalculateType),
    property<int16_t>("TotalPeriod", &_EmployeeObject::TotalPeriod, &_EmployeeObject::TotalPeriod),
    property<double>("TaxBase", &_EmployeeObject::TaxBase, &_EmployeeObject::TaxBase),
    property<double>("STaxBase", &_EmployeeObject::STaxBase, &_EmployeeObject::STaxBase),
    property<double>("SFUNDBase", &_EmployeeObject::SFUNDBase, &_EmployeeObject::SFUNDBase),
    property<double>("FUNDBase", &_EmployeeObject::FUNDBase, &_EmployeeObject::FUNDBase),
    property<double>("Salary1Base", &_EmployeeObject::Salary1Base, &_EmployeeObject::Salary1Base),
    property<Date>("SignDate", &_EmployeeObject::SignDate, &_EmployeeObject::SignDate),
    property<Date>("ReSignDate", &_EmployeeObject::ReSignDate, &_EmployeeObject::ReSignDate),
    property<Date>("StartDate", &_EmployeeObject::StartDate, &_EmployeeObject::StartDate),
    property<Date>("EndDate", &_EmployeeObject::EndDate, &_EmployeeObject::EndDate),
    property<int16_t>("Condition", &_EmployeeObject::Condition, &_EmployeeObject::Condition),
    property<Currency>("LastSalary", &_EmployeeObject::LastSalary, &_EmployeeObject::LastSalary),
    property<Currency>("LastWTAX", &_EmployeeObject::LastWTAX, &_EmployeeObject::LastWTAX),
    property<Currency>("LastSSO", &_EmployeeObject::LastSSO, &_EmployeeObject::LastSSO),
    property<int16_t>("DecimalSalary", &_EmployeeObject::DecimalSalary,
                      &_EmployeeObject::DecimalSalary)};

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

/// The methods of the pay profile beside its properties; every front is generated from them.
inline constexpr std::tuple kProfileMethods{
    ProfileMethod<&_EmployeeObject::SetTypeCode>{"SetTypeCode",
                                                 {Parameter("vData"), Parameter("DataObj")}},
    ProfileMethod<&_EmployeeObject::SETSALARY>{
        "SETSALARY", {Parameter("iSalary1"), Parameter("iSalary2"), Parameter("QuantityCalc")}},
    ProfileMethod<&_EmployeeObject::CalcMethod>{"CalcMethod", {}},
    ProfileMethod<&_EmployeeObject::CalcMethodSalary>{"CalcMethodSalary", {}}};

}  // namespace kt7
