#pragma once

#include <functional>
#include <optional>

#include <kt7/contract/platform.h>
#include <kt7/export.h>
#include <kt7/host/picker.h>

namespace kt7::host {

/// The platform of the reference host: its own drivers and collaborators, the machine's clock or a
/// fixed moment, and what answers pickers and messages. Outlives the collaborators that it makes.
class KT7_API HostPlatform : public Platform {
 public:
  using MessageView = std::function<void(const std::string& text)>;

  HostPlatform() = default;
  explicit HostPlatform(Date fixedNow) : fixedNow_(fixedNow) {}
  HostPlatform(const HostPlatform&) = delete;
  HostPlatform& operator=(const HostPlatform&) = delete;

  /// Stops the clock at that moment; without one the machine's local time counts again.
  void setNow(std::optional<Date> moment) { fixedNow_ = moment; }
  /// Takes the place of the one line on standard error.
  void setMessageView(MessageView view) { messageView_ = std::move(view); }
  /// Without one a picker is an error. Holds also for collaborators made before.
  void setPicker(Picker picker) { picker_ = std::move(picker); }

  std::unique_ptr<ado::Connection> createConnection() override;
  std::unique_ptr<ado::Recordset> createRecordset() override;
  std::unique_ptr<UtilityObject> createUtilityObject() override;
  std::unique_ptr<DataTool> createDataTool() override;
  std::unique_ptr<SettingStore> createSettingStore() override;

  Date now() override;
  void showMessage(const std::string& text) override;

 private:
  std::optional<Date> fixedNow_;
  MessageView messageView_;
  Picker picker_ = pickNever();
};

}  // namespace kt7::host
