#pragma once

#include <memory>
#include <string>

#include <kt7/contract/data_access.h>
#include <kt7/contract/data_tool.h>
#include <kt7/contract/setting_store.h>
#include <kt7/contract/utility_object.h>
#include <kt7/export.h>

namespace kt7 {

/// What the operating system and the host give the library: new connections, recordsets and
/// collaborators, the clock, and the modal message. The library asks nothing of the machine itself.
class KT7_API Platform {
 public:
  virtual ~Platform() = default;

  virtual std::unique_ptr<ado::Connection> createConnection() = 0;
  virtual std::unique_ptr<ado::Recordset> createRecordset() = 0;
  virtual std::unique_ptr<UtilityObject> createUtilityObject() = 0;
  virtual std::unique_ptr<DataTool> createDataTool() = 0;
  virtual std::unique_ptr<SettingStore> createSettingStore() = 0;

  /// The machine's date and time.
  virtual Date now() = 0;
  /// Shows a message and returns when it has been seen; it never waits where nobody can answer.
  virtual void showMessage(const std::string& text) = 0;
};

}  // namespace kt7
