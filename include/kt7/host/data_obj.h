#pragma once

#include <string>

#include <kt7/export.h>
#include <kt7/roles/standard_data_obj.h>

namespace kt7::host {

/// The data object of the reference host, on its own drivers.
class KT7_API HostDataObj : public roles::StandardDataObj {
 public:
  /// Closed at first. Whether the connection string names a known driver is tested here.
  explicit HostDataObj(const std::string& connectionString);
  std::string DatabaseType() override;

 private:
  std::string askedType_;
};

}  // namespace kt7::host
