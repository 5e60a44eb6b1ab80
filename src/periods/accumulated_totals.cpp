#include <kt7/hr_object.h>

namespace kt7 {

int16_t HRObject::SumAmass(const std::string& /*TEmpCode*/, int32_t /*CheckGroup*/,
                           const std::string& /*TAmyCode*/, const std::string& /*TEPSNo*/,
                           const std::string& /*ConnectionString*/) {
  return 0;  // Intended 4: published and without effect.
}

int16_t HRObject::SumAmassTR(const std::string& /*TEmpCode*/, int32_t /*CheckGroup*/,
                             const std::string& /*TAmyCode*/, const std::string& /*TEPSNo*/,
                             ado::Connection& /*ConObj*/) {
  return 0;  // Intended 4: published and without effect.
}

int16_t HRObject::SumAmass2(const std::string& TEmpCode, int32_t CheckGroup,
                            const std::string& TAmyCode, const std::string& TEPSNo,
                            DataObj& dataObj, int16_t Status) {
  dataObj.OpenConnection();
  dataObj.BeginTransaction();
  const int16_t result =
      self().SumAmass2TR(TEmpCode, CheckGroup, TAmyCode, TEPSNo, dataObj, Status);
  dataObj.CommitTransaction();
  dataObj.CloseConnection();
  return result;
}

int16_t HRObject::SumAmass2TR(const std::string& TEmpCode, int32_t CheckGroup,
                              const std::string& /*TAmyCode*/, const std::string& TEPSNo,
                              DataObj& dataObj, int16_t Status) {
  constexpr int16_t kBalanceFlag = 0;
  return self().SumAmass3TR(TEmpCode, CheckGroup, kBalanceFlag, TEPSNo, dataObj, Status);
}

}  // namespace kt7
