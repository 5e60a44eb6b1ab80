#pragma once

#include <utility>

#include <kt7/contract/platform.h>

namespace kt7::payroll {

/// A host's platform that remembers whether a message was shown. Updates that trap their errors
/// tell of them by nothing but a message.
class ListeningPlatform : public Platform {
 public:
  explicit ListeningPlatform(Platform& host) : host_(host) {}

  std::unique_ptr<ado::Connection> createConnection() override { return host_.createConnection(); }
  std::unique_ptr<ado::Recordset> createRecordset() override { return host_.createRecordset(); }
  std::unique_ptr<UtilityObject> createUtilityObject() override {
    return host_.createUtilityObject();
  }
  std::unique_ptr<DataTool> createDataTool() override { return host_.createDataTool(); }
  std::unique_ptr<SettingStore> createSettingStore() override { return host_.createSettingStore(); }
  Date now() override { return host_.now(); }
  void showMessage(const std::string& text) override {
    messageShown_ = true;
    host_.showMessage(text);
  }

  /// Whether a message was shown since the last time it was asked.
  bool takeMessageShown() { return std::exchange(messageShown_, false); }

 private:
  Platform& host_;
  bool messageShown_ = false;
};

}  // namespace kt7::payroll
