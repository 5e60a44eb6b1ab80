#include <gtest/gtest.h>

#include <kt7/employee_object.h>
#include "support/company.h"

namespace kt7 {
namespace {

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
  EXPECT_EQ(profile.DayPerMonth(), 26);
}

}  // namespace
}  // namespace kt7
