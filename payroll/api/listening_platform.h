#pragma once

#include <functional>
#include <vector>

#include <kt7/contract/platform.h>

namespace kt7::payroll {

/// A host's platform that can hold messages back: an update that traps its errors tells of them by
/// a message only.
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
    if (kept_ != nullptr) {
      kept_->push_back(text);
    } else {
      host_.showMessage(text);
    }
  }

  /// Runs `work` and answers the messages that it would have shown.
  std::vector<std::string> messagesOf(const std::function<void()>& work) {
    std::vector<std::string> messages;
    const Keeping keeping(kept_, messages);
    work();
    return messages;
  }

 private:
  struct Keeping {
    Keeping(std::vector<std::string>*& kept, std::vector<std::string>& messages) : kept_(kept) {
      kept_ = &messages;
    }
    ~Keeping() { kept_ = nullptr; }
    Keeping(const Keeping&) = delete;
    Keeping& operator=(const Keeping&) = delete;
    std::vector<std::string>*& kept_;
  };

  Platform& host_;
  std::vector<std::string>* kept_ = nullptr;
};

}  // namespace kt7::payroll
