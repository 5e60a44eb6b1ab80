#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include "fronts/com/database2/data_access.h"

/// What a host passes to the operations: its data object, its application and its client.
namespace kt7::database2 {

/// The platform that all objects of this library share, whatever their apartment: drivers, clock,
/// what pickers answer.
class SharedPlatform : public host::HostPlatform {
 public:
  SharedPlatform();
  /// Every picker answers those key values from now on.
  void answerPickers(const std::vector<std::string>& keys);

 private:
  host::Picker current();

  std::mutex guard_;
  host::Picker answer_ = host::pickNever();
};
SharedPlatform& platform();

class DataObject {
 public:
  std::string ConnectionString() const { return connectionString_; }
  /// Names the database. Refused while the connection is open.
  void setConnectionString(const std::string& text);

  /// The open connection, which lives as long as the data object or the answer.
  Variant Connection();
  void OpenConnection() { data().OpenConnection(); }
  void CloseConnection() { data().CloseConnection(); }
  void BeginTransaction() { data().BeginTransaction(); }
  void CommitTransaction() { data().CommitTransaction(); }
  void RollbackTransaction() { data().RollbackTransaction(); }
  void ExecuteSql(const std::string& sql) { data().ExecuteSql(sql); }
  void ExecuteSqlEx(const std::string& sql, bool flag) { data().ExecuteSqlEx(sql, flag); }
  std::string DatabaseType() { return data().DatabaseType(); }

  /// Raises a collaborator error before the connection string was set.
  host::HostDataObj& data();

 private:
  std::string connectionString_;
  std::shared_ptr<host::HostDataObj> data_;
};

class ApplicationObject {
 public:
  std::string AppDatabaseConnectionString() const { return connectionString_; }
  void setAppDatabaseConnectionString(const std::string& text) { connectionString_ = text; }

 private:
  std::string connectionString_;
};

class ClientObject {
 public:
  std::int32_t CurrentUserID() const { return user_; }
  void setCurrentUserID(std::int32_t user) { user_ = user; }
  std::string CurrentBranchCode() const { return branch_; }
  void setCurrentBranchCode(const std::string& code) { branch_ = code; }
  /// The key values, joined by ",", that every picker of the process answers from now on.
  void setPickerAnswer(const std::string& keys);
  std::string PickerAnswer() const { return pickerAnswer_; }

 private:
  std::int32_t user_ = 0;
  std::string branch_;
  std::string pickerAnswer_;
};

/// A DataObj of this library; a type mismatch for anybody else's.
template <>
class Parameter<kt7::DataObj> {
 public:
  explicit Parameter(const VARIANT& given);
  kt7::DataObj& pass() const { return *data_; }

 private:
  kt7::DataObj* data_;
};

}  // namespace kt7::database2
