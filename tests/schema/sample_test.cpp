#include <gtest/gtest.h>

#include <kt7/error.h>
#include "host/schema/sample/sample_files.h"
#include "host/schema/transfer/import.h"
#include "schema/open_database.h"

namespace kt7::schema {
namespace {

class Sample : public testing::Test {
 protected:
  Sample() {
    createSchema(database_.connection(), testedEngine());
    loadSample(database_.connection());
  }
  OpenDatabase database_;
};

TEST_F(Sample, FillsTheCompany) {
  const struct {
    const char* rows;
    const char* count;
  } cases[] = {
      {"KT7TEmployee", "40"},
      {"KT7TEmployee WHERE TEmpStatus=3", "3"},
      {"KT7TEmployee WHERE TEmpResignDate IS NULL", "37"},
      {"KT7TEmployee2 WHERE TEm2SocialInsured=0", "1"},
      {"KT7TEmployee2 WHERE TEm2FundMember=1 AND TEm2FundRate>0 AND TEm2FundSignDate IS NOT NULL",
       "22"},
      {"KT7TEmployee2 WHERE TEm2FundMember=1", "22"},
      {"KT7TBranch", "3"},
      {"KT7TSection", "12"},
      {"KT7TEmployeeType WHERE TEMTFlag1=1 AND TEMTAutoPeriod=1", "5"},
      {"KT7TTaxRate WHERE TTxRTTaxAlias='PTAX'", "8"},
      {"KT7TFundRate WHERE TFuRTFunAlias='SFUND' AND TFurTEmTCode IN ('M1', 'M2')", "12"},
      {"KT7TFundRate WHERE TFuRTFunAlias='SFUND' AND TFurTEmTCode IN ('W4', 'D2', 'H1')", "9"},
      {"KT7TEmpTipRate", "6"},
      {"KT7TEmpHoliday WHERE TEhdTBraCode='BR03' AND TEHdHolidayDate='2026-02-17'", "1"},
      {"KT7TEmpHoliday WHERE TEhdTBraCode='BR01' AND TEHdHolidayDate='2026-02-17'", "0"},
      {"KT7TEmpLeaveType", "10"},
      {"KT7TEmpLeavePeriod", "4"},
      {"KT7VEmployee WHERE TBraName IS NULL OR TDivName IS NULL OR TDepName IS NULL OR TSecName IS "
       "NULL OR TPstName IS NULL OR TEm2SkipSlip IS NULL",
       "0"},
      {"KT7TEmployee LEFT JOIN KT7TEmployeeType ON TEmTCode=TEmpTEmTCode WHERE TEmTCode IS NULL",
       "0"},
  };
  for (const auto& row : cases) EXPECT_EQ(database_.count(row.rows), row.count) << row.rows;
}

TEST_F(Sample, CarriesPayTypesRatesAndSettings) {
  const struct {
    const char* column;
    const char* from;
    const char* value;
  } cases[] = {
      {"TEmpSalary", "KT7TEmployee WHERE TEmpCode='E0006'", "31500.5"},
      {"TEmTSalaryType", "KT7TEmployeeType WHERE TEmTCode='D2'", "2"},
      {"TEmTCalculateType", "KT7TEmployeeType WHERE TEmTCode='H1'", "3"},
      {"TEMTTotalPeriod", "KT7TEmployeeType WHERE TEmTCode='W4'", "4"},
      {"TEmTDayPerMonth", "KT7TEmployeeType WHERE TEmTCode='W4'", "26"},
      {"TEMTOTStartPeriod1", "KT7TEmployeeType WHERE TEmTCode='W4'", "22"},
      {"TEMTOTEndPeriod1", "KT7TEmployeeType WHERE TEmTCode='W4'", "31"},
      {"TEMTStartPeriod1", "KT7TEmployeeType WHERE TEmTCode='D2'", "21"},
      {"TEMTPaymentCustom2", "KT7TEmployeeType WHERE TEmTCode='M2'", "31"},
      {"TEMTPaymentPeriod2", "KT7TEmployeeType WHERE TEmTCode='M1'", "null"},
      {"TBraHolidayList", "KT7TBranch WHERE TBraCode='BR02'", "H;;;;;;"},
      {"TBraHolidayList", "KT7TBranch WHERE TBraCode='BR03'", "H;;;;;;H"},
      {"TFuRShareRate1", "KT7TFundRate WHERE TFurTEmTCode='M2' AND TFurFromBase=10", "7.5"},
      {"TTxRRate", "KT7TTaxRate WHERE TTxRFromBase=5000000", "35"},
      {"TSetNumber", "KT7TSetting WHERE TSetKey='MoneyExpendses'", "50"},
      {"TSetNumber", "KT7TSetting WHERE TSetKey='STAXMaxRate'", "17500"},
      {"TSetText", "KT7TSetting WHERE TSetKey='HeadOfficeBranchCode'", "BR01"},
      {"TCBBTBraCode", "KT7TSection WHERE TSecCode='S212'", "BR02"},
      {"TEm2Children", "KT7TEmployee2 WHERE TEm2TEmpCode='E0001'", "2"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(database_.text(row.column, std::string("SELECT * FROM ") + row.from), row.value)
        << row.column << " " << row.from;
  }
}

TEST_F(Sample, IsLoadedWholeOrNotAtAll) {
  EXPECT_GE(sampleFiles().size(), 17u);
  database_.run("DELETE FROM KT7TBranch");
  EXPECT_THROW(loadSample(database_.connection()), ImportError);
  EXPECT_EQ(database_.count("KT7TBranch"), "0");
}

}  // namespace
}  // namespace kt7::schema
