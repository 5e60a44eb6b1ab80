#pragma once

#include <kt7/hr_object.h>
#include <kt7/payroll/pay_month.h>
#include "payroll/api/listening_platform.h"
#include "payroll/ports/run_services.h"
#include "payroll/store/company_store.h"
#include "payroll/store/lease_store.h"
#include "payroll/store/slip_store.h"

namespace kt7::payroll {

/// The services of a run on a host's platform and data object, both of which outlive it.
class StoreWorker : public Worker {
 public:
  StoreWorker(Platform& platform, DataObj& dataObj,
              const std::function<void(DataObj&)>& catchUp = {});

  RunServices& services() override { return services_; }

 private:
  ListeningPlatform platform_;
  HRObject hr_;
  std::unique_ptr<UtilityObject> utility_;
  std::unique_ptr<SettingStore> settings_;
  Records records_;
  CompanyStore company_;
  SlipStore book_;
  LeaseStore leases_;
  RunServices services_;
};

/// The same on a workplace that it owns.
class WorkplaceWorker : public Worker {
 public:
  explicit WorkplaceWorker(Workplace workplace)
      : workplace_(std::move(workplace)),
        worker_(*workplace_.platform, *workplace_.dataObj, workplace_.catchUp) {}

  RunServices& services() override { return worker_.services(); }

 private:
  Workplace workplace_;
  StoreWorker worker_;
};

}  // namespace kt7::payroll
