#include "payroll/store/pay_month.h"

#include "interface/employee_object.h"
#include "interface/hr_object.h"
#include "payroll/store/company_store.h"
#include "payroll/store/listening_platform.h"
#include "payroll/store/slip_store.h"

namespace kt7::payroll {

RunOutcome payMonth(Platform& platform, DataObj& dataObj, const RunRequest& request,
                    RunListener& listener) {
  ListeningPlatform listening(platform);
  HRObject hr(listening);
  const auto utility = listening.createUtilityObject();
  const auto settings = listening.createSettingStore();
  Records records(listening, dataObj);
  CompanyStore company(records);
  SlipStore book(records, dataObj);
  RunServices services{hr,
                       dataObj,
                       *utility,
                       *settings,
                       company,
                       book,
                       [&] { return std::make_unique<EmployeeObject>(listening); },
                       [&] { return listening.now(); },
                       [&] { return listening.takeMessageShown(); }};
  return runMonth(request, services, listener);
}

}  // namespace kt7::payroll
