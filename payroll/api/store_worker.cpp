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
      services_{.hr = hr_,
                .dataObj = dataObj,
                .utility = *utility_,
                .settings = *settings_,
                .company = company_,
                .book = book_,
                .leases = leases_,
                .newProfile = [this] { return std::make_unique<EmployeeObject>(platform_); },
                .now = [this] { return platform_.now(); },
                .messagesOf = [this](const auto& work) { return platform_.messagesOf(work); },
                .showMessage = [this](const std::string& text) { platform_.showMessage(text); },
                .reconnect =
                    [&dataObj] {
                      dataObj.CloseConnection();
                      dataObj.OpenConnection();
                    }} {
  if (catchUp) services_.catchUp = [&dataObj, catchUp] { catchUp(dataObj); };
}

}  // namespace kt7::payroll
