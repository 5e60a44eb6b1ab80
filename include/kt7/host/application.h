#pragma once

#include <string>
#include <utility>

#include <kt7/contract/data_obj.h>
#include <kt7/export.h>

namespace kt7::host {

/// A user who works at a branch.
class KT7_API HostClientObj : public ClientObj {
 public:
  HostClientObj(std::int32_t userID, std::string branchCode)
      : userID_(userID), branchCode_(std::move(branchCode)) {}
  std::int32_t CurrentUserID() override { return userID_; }
  std::string CurrentBranchCode() override { return branchCode_; }

 private:
  std::int32_t userID_;
  std::string branchCode_;
};

/// The host's application, whose own tables may lie in another database than the company's.
class KT7_API HostAppObj : public AppObj {
 public:
  explicit HostAppObj(std::string connectionString)
      : connectionString_(std::move(connectionString)) {}
  std::string AppDatabaseConnectionString() override { return connectionString_; }

 private:
  std::string connectionString_;
};

}  // namespace kt7::host
