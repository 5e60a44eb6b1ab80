#include <kt7/hr_object.h>
#include "schema/employee_code_columns.h"

namespace kt7 {

int16_t HRObject::RenameEmployeeCodeTR(DataObj& dataObj, const std::string& FromCode,
                                       std::string& ToCode) {
  constexpr int16_t kAllRan = 1;
  for (const schema::EmployeeCodeColumn& owner : schema::kEmployeeCodeColumns) {
    std::string sql = "UPDATE ";
    sql.append(owner.table).append(" SET ").append(owner.column).append("='").append(ToCode);
    sql.append("' WHERE ").append(owner.column).append("='").append(FromCode).append("'");
    dataObj.ExecuteSqlEx(sql, true);
  }
  return kAllRan;
}

}  // namespace kt7
