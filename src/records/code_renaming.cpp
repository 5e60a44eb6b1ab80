#include "interface/hr_object.h"
#include "schema/employee_code_columns.h"

namespace kt7 {

int16_t HRObject::RenameEmployeeCodeTR(DataObj& dataObj, const std::string& FromCode,
                                       std::string& ToCode) {
  constexpr int16_t kAllRan = 1;
  for (const schema::EmployeeCodeColumn& owner : schema::kEmployeeCodeColumns) {
    const std::string column(owner.column);
    dataObj.ExecuteSqlEx("UPDATE " + std::string(owner.table) + " SET " + column + "='" + ToCode +
                             "' WHERE " + column + "='" + FromCode + "'",
                         true);
  }
  return kAllRan;
}

}  // namespace kt7
