#pragma once

#include <kt7/contract/platform.h>
#include "host/trace/step.h"

namespace kt7::trace {

/// A platform whose connections, recordsets, collaborators and messages are observed. Both
/// arguments outlive it and what it makes.
class TracedPlatform : public Platform {
 public:
  TracedPlatform(Platform& inner, StepObserver& observer) : inner_(inner), observer_(observer) {}

  std::unique_ptr<ado::Connection> createConnection() override;
  std::unique_ptr<ado::Recordset> createRecordset() override;
  std::unique_ptr<UtilityObject> createUtilityObject() override;
  std::unique_ptr<DataTool> createDataTool() override;
  std::unique_ptr<SettingStore> createSettingStore() override;

  Date now() override { return inner_.now(); }
  void showMessage(const std::string& text) override;

 private:
  Platform& inner_;
  StepObserver& observer_;
};

}  // namespace kt7::trace
