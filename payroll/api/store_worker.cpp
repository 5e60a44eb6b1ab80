#include "payroll/api/store_worker.h"

#include <kt7/employee_object.h>

namespace kt7::payroll {

StoreWorker::StoreWorker(Platform& platform, DataObj& dataObj,
                         const std::function<void(DataObj&)>& catchUp)
    : platform_(platform),
      hr_(platform_),
      utility_(platform_.createUtilityObject()),
      settings_(platform_.createSettingStore()),
      records_(platform_, dataObj),
      company_(records_),
      book_(records_, dataObj),
      leases_(records_, dataObj),
      services_{hr_,
                dataObj,
                *utility_,
                *settings_,
                company_,
                book_,
                leases_,
                [this] { return std::make_unique<EmployeeObject>(platform_); },
                [this] { return platform_.now(); },
                [this](const auto& work) { return platform_.messagesOf(work); },
                [this](const std::string& text) { platform_.showMessage(text); },
                [&dataObj] {
                  dataObj.CloseConnection();
                  dataObj.OpenConnection();
                }} {
  if (catchUp) services_.catchUp = [&dataObj, catchUp] { catchUp(dataObj); };
}

}  // namespace kt7::payroll
