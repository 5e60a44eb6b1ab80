#include "host/trace/traced_platform.h"

#include "host/trace/traced_connection.h"
#include "host/trace/traced_data_tool.h"
#include "host/trace/traced_recordset.h"
#include "host/trace/traced_setting_store.h"

namespace kt7::trace {

std::unique_ptr<ado::Connection> TracedPlatform::createConnection() {
  return std::make_unique<TracedConnection>(inner_.createConnection(), observer_);
}

std::unique_ptr<ado::Recordset> TracedPlatform::createRecordset() {
  return std::make_unique<TracedRecordset>(inner_.createRecordset(), observer_);
}

std::unique_ptr<UtilityObject> TracedPlatform::createUtilityObject() {
  return inner_.createUtilityObject();
}

std::unique_ptr<DataTool> TracedPlatform::createDataTool() {
  return std::make_unique<TracedDataTool>(inner_.createDataTool(), observer_);
}

std::unique_ptr<SettingStore> TracedPlatform::createSettingStore() {
  return std::make_unique<TracedSettingStore>(inner_.createSettingStore(), observer_);
}

void TracedPlatform::showMessage(const std::string& text) {
  Step step = stepOf(StepKind::Message, {});
  step.text = text;
  observed(observer_, step, [&] { inner_.showMessage(text); });
}

}  // namespace kt7::trace
