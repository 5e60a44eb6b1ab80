#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "base/setting_names.h"

namespace kt7 {

namespace {

// From this year on a date is taken as written in the Buddhist era and not looked up.
constexpr int kBuddhistEraFrom = 2400;

}  // namespace

double HRObject::GetSFUNDRate(DataObj& dataObj, const std::string& EmployeeTypeCode, Date SignDate,
                              Date calcDate) {
  if (!utility().IsValidDateText(calcDate.shortText())) return 0;
  if (calcDate.year() >= kBuddhistEraFrom) return 0;
  const int16_t yearsOfService = narrow16(calcDate.year() - SignDate.year());
  return dataTool().QueryDouble(
      "A",
      "SELECT TFuRShareRate1 AS A FROM KT7TFundRate WHERE TFuRTFunAlias='SFUND' AND "
      "TFurTEmTCode='" +
          EmployeeTypeCode + "' AND TFurFromBase <=" + std::to_string(yearsOfService) +
          " ORDER BY TFurFromBase DESC",
      dataObj.ConnectionString());
}

double HRObject::TrimSFUNDBase(double iBaseAmount, DataObj& /*dataObj*/) { return iBaseAmount; }

double HRObject::TrimSTAXBase(double iBaseAmount, DataObj& dataObj) {
  const double lowest =
      settings().GetNumberSetting(setting_name::kSocialSecurityMinPay, dataObj.ConnectionString());
  const double highest =
      settings().GetNumberSetting(setting_name::kSocialSecurityMaxPay, dataObj.ConnectionString());
  double base = iBaseAmount;
  if (base < lowest) base = lowest;
  if (base > highest) base = highest;  // last: a minimum above the maximum gives the maximum
  return base;
}

}  // namespace kt7
