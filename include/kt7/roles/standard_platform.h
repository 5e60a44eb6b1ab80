#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <kt7/contract/platform.h>
#include <kt7/export.h>
#include <kt7/roles/picker.h>
#include <kt7/roles/utility_object.h>

namespace kt7::data {
class Sessions;
}

namespace kt7::roles {

/// The ready-made platform: connections and recordsets on the sessions it was given, the ready-made
/// collaborators, the machine's clock or a fixed moment, and what answers pickers and messages.
/// Outlives the collaborators that it makes.
class KT7_API StandardPlatform : public Platform {
 public:
  using MessageView = std::function<void(const std::string& text)>;

  explicit StandardPlatform(std::shared_ptr<data::Sessions> sessions);
  StandardPlatform(const StandardPlatform&) = delete;
  StandardPlatform& operator=(const StandardPlatform&) = delete;

  /// Stops the clock at that moment; without one the machine's local time counts again.
  void setNow(std::optional<Date> moment) { fixedNow_ = moment; }
  /// Takes the place of the one line on standard error.
  void setMessageView(MessageView view) { messageView_ = std::move(view); }
  /// Without one a picker is an error. Holds also for collaborators made before.
  void setPicker(Picker picker) { picker_ = std::move(picker); }
  /// Without one permission tokens are an error. Holds also for collaborators made before.
  void setKeyedHash(KeyedHash hash) { keyedHash_ = std::move(hash); }

  std::unique_ptr<ado::Connection> createConnection() override;
  std::unique_ptr<ado::Recordset> createRecordset() override;
  std::unique_ptr<UtilityObject> createUtilityObject() override;
  std::unique_ptr<DataTool> createDataTool() override;
  std::unique_ptr<SettingStore> createSettingStore() override;

  Date now() override;
  void showMessage(const std::string& text) override;

  const std::shared_ptr<data::Sessions>& sessions() const { return sessions_; }

 private:
  std::shared_ptr<data::Sessions> sessions_;
  std::optional<Date> fixedNow_;
  MessageView messageView_;
  Picker picker_ = pickNever();
  KeyedHash keyedHash_;
};

}  // namespace kt7::roles
