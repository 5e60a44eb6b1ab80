#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "rates/day_rate.h"
#include "support/opened.h"

namespace kt7 {

namespace rates {

double dayRate(std::int16_t salaryType, double salary) {
  switch (salaryType) {
    case 0:
      return salary / 30;
    case 1:
      return salary / 7;
    case 2:
      return salary;
    case 3:
      return finite(salary * kHoursPerDay);
    case 4:
      return salary / 15;
    case 5:
      return salary / 3;
    default:
      return 0;
  }
}

}  // namespace rates

double HRObject::GETDAYRATE(const std::string& EmployeeCode, DataObj& dataObj) {
  const std::string typeCode =
      dataTool().LookupText("", 0, 0, "Tempcode", EmployeeCode, "TEmpTEmTcode", "KT7Temployee",
                            dataObj.ConnectionString());
  const std::int16_t salaryType =
      toInt16(dataTool().LookupDouble("", 0, 0, "TemTcode", typeCode, "TEmTSalaryType",
                                      "KT7TemployeeType", dataObj.ConnectionString()));
  const double salary = dataTool().LookupDouble("", 0, 0, "Tempcode", EmployeeCode, "TEmpSalary",
                                                "KT7Temployee", dataObj.ConnectionString());
  return rates::dayRate(salaryType, salary);
}

double HRObject::GETHOURRATE(const std::string& EmployeeCode, DataObj& dataObj) {
  return self().GETDAYRATE(EmployeeCode, dataObj) / rates::kHoursPerDay;
}

double HRObject::GETSectionHourRate(const std::string& SectionCode, DataObj& dataObj,
                                    bool /*UseOTRate*/) {
  OwnConnection connection(platform_, dataObj);
  OpenRecordset employees(
      platform_,
      "SELECT * FROM KT7TEmployee WHERE TEmpTSecCode='" + SectionCode + "' Order by TEmpCode",
      *connection);
  double sum = 0;
  std::int32_t count = 0;
  for (; !employees->Eof(); employees->MoveNext()) {
    sum = finite(sum + self().GETHOURRATE(employees->get("TEmpCode").toText(), dataObj));
    count = toInt32(count + 1.0);
  }
  employees.close();
  connection.close();
  return count > 0 ? sum / count : 0;
}

}  // namespace kt7
