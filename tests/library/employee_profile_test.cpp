#include <gtest/gtest.h>

#include <kt7/employee_object.h>
#include "base/text.h"
#include "support/company.h"

namespace kt7 {
namespace {

TEST(EmployeeProfile, DerivesThePayByTheSalaryType) {
  host::HostPlatform platform;
  const struct {
    std::int16_t type;
    double hour1, hour2, pay1, pay2;
  } cases[] = {// 240 hours a month, 56 a week, 8 a day
               {0, 41.6667, 2.9172, 10000, 700.1235},
               {1, 178.5714, 12.5022, 10000, 700.12346},
               {2, 1250, 87.5154, 30000, 2100.3704},
               {3, 10000, 700.12346, 30000, 2100.3704},
               {4, 20.8333, 1.4586, 30000, 2100.3704},
               {5, 13.8889, 0.9724, 30000, 2100.3704},
               {6, 10000, 700.12346, 30000, 2100.3704},
               {7, 1, 2, 3, 4},
               {-1, 1, 2, 3, 4}};
  for (const auto& [type, hour1, hour2, pay1, pay2] : cases) {
    SCOPED_TRACE(type);
    EmployeeObject profile(platform);
    profile.SalaryType(type);
    profile.HourRate1(1);
    profile.HourRate2(2);
    profile.CalculateSalary1(3);
    profile.CalculateSalary2(4);
    profile.Salary1Base(12000);
    profile.HourFullRate1(0);
    profile.Condition(3);
    profile.SETSALARY(10000, 700.12346, 3);
    EXPECT_EQ(profile.HourRate1(), hour1);
    EXPECT_EQ(profile.HourRate2(), hour2);
    EXPECT_EQ(profile.CalculateSalary1(), pay1);
    EXPECT_EQ(profile.CalculateSalary2(), pay2);
    EXPECT_EQ(profile.Salary2(), type < 0 || type > 6 ? 0 : 700.12346);
    EXPECT_EQ(profile.TotalPeriod(), type == 0 ? 1 : 0);
    EXPECT_EQ(profile.HourFullRate1(), 50);
    EXPECT_EQ(profile.SalFactor(), 10000.07F);
    EXPECT_EQ(profile.Condition(), 0);
  }
  EmployeeObject profile(platform);
  profile.TotalPeriod(2);
  profile.SETSALARY(15000, 0, 0);
  EXPECT_EQ(profile.CalculateSalary1(), 7500);
  EXPECT_EQ(profile.SalFactor(), 100);
  profile.SETSALARY(0, 5, 0);
  EXPECT_EQ(profile.SalFactor(), 0);
}

TEST(EmployeeProfile, LoadsTheHoursOfATypeAndItsRates) {
  test::Company company;
  const struct {
    std::int16_t type;
    double quantity, hour1, hour2;
  } cases[] = {// 208 hours a month, 40 a week, 8 a day
               {0, 1, 48.08, 3.37}, {1, 4, 250, 17.5},   {2, 26, 1250, 87.5}, {3, 208, 10000, 700},
               {4, 2, 24.04, 1.68}, {5, 3, 16.03, 1.12}, {6, 1, 0, 0},        {7, 5, 1, 2}};
  for (const auto& [type, quantity, hour1, hour2] : cases) {
    SCOPED_TRACE(type);
    const std::string code = std::to_string(type);
    company.run(replaceAll(
        "INSERT INTO KT7TEmployeeType (TEmTCode, TEmTHourPerDay, TEmTDayPerWeek, TEmTDayPerMonth, "
        "TEmTTotalPeriod, TEmTDayPerPeriod, TEmTDayPerYear, TEmTHourPerPeriod, TEmTHourPerWeek, "
        "TEmTHourPerMonth, TEmTHourPerYear, TEmTSalaryType, TEmTCalculateType) VALUES ('{}', "
        "8, 5, 26, 2, 15, 313, 104.5, 99, 1, NULL, 9, {})",
        "{}", code));
    EmployeeObject profile(company.platform());
    profile.Salary1(10000);
    profile.Salary2(700);
    profile.Salary1Base(5200);
    profile.CalculateQuantity(5);
    profile.HourRate1(1);
    profile.HourRate2(2);
    profile.HourPerYear(3);
    profile.SetTypeCode("none", company.data());
    EXPECT_EQ(profile.TypeCode(), "1");
    EXPECT_EQ(profile.DayPerMonth(), 30);
    profile.SetTypeCode(code, company.data());
    EXPECT_EQ(profile.TypeCode(), code);
    EXPECT_EQ(profile.CalculateQuantity(), quantity);
    EXPECT_EQ(profile.HourRate1(), hour1);
    EXPECT_EQ(profile.HourRate2(), hour2);
    EXPECT_EQ(profile.HourFullRate1(), 25);
    EXPECT_EQ(
        (std::vector<double>{profile.HourPerDay(), profile.HourPerWeek(), profile.HourPerMonth(),
                             profile.HourPerPeriod(), profile.HourPerYear()}),
        (std::vector<double>{8, 40, 208, 104.5, 0}));
    EXPECT_EQ((std::vector<int>{profile.DayPerWeek(), profile.DayPerMonth(), profile.DayPerPeriod(),
                                profile.DayPerYear(), profile.TotalPeriod(), profile.SalaryType()}),
              (std::vector<int>{5, 26, 15, 313, 2, 9}));
  }
}

/// A host's profile around another one: it keeps to itself what the week's hours are to be.
class FixedWeek : public EmployeeObject {
 public:
  using EmployeeObject::EmployeeObject;
  using EmployeeObject::HourPerWeek;
  void HourPerWeek(double value) override { asked.push_back(value); }
  std::vector<double> asked;
};

TEST(EmployeeProfile, LoadsATypeThroughTheSettersOfItsOuter) {
  test::Company company;
  company.run(
      "INSERT INTO KT7TEmployeeType(TEmTCode,TEmTHourPerDay,TEmTDayPerWeek,TEmTDayPerMonth,"
      "TEmTTotalPeriod,TEmTHourPerWeek,TEmTCalculateType) VALUES('M1',8,5,26,1,99,0)");
  FixedWeek outer(company.platform());
  EmployeeObject profile(company.platform(), &outer);
  EXPECT_TRUE(outer.asked.empty());
  profile.SetTypeCode("M1", company.data());
  EXPECT_EQ(outer.asked, (std::vector<double>{99, 40}));
  EXPECT_EQ(profile.HourPerWeek(), 56);
  EXPECT_EQ(outer.HourPerMonth(), 208);
}

}  // namespace
}  // namespace kt7
