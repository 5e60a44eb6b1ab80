#pragma once

#include <string>

#include <kt7/contract/data_obj.h>
#include "fronts/com/adapters/late_connection.h"
#include "fronts/com/automation/late_object.h"

namespace kt7::adapters {

/// The objects that a host passes to a call, reached by the names of their members.
class LateDataObj : public DataObj {
 public:
  explicit LateDataObj(IDispatch* object)
      : object_(object, "DataObj"), connection_(LateObject(nullptr, "DataObj.Connection")) {}

  ado::Connection& Connection() override;
  void OpenConnection() override { object_.run(L"OpenConnection"); }
  void CloseConnection() override { object_.run(L"CloseConnection"); }
  void BeginTransaction() override { object_.run(L"BeginTransaction"); }
  void CommitTransaction() override { object_.run(L"CommitTransaction"); }
  void ExecuteSql(const std::string& sql) override { object_.run(L"ExecuteSql", sql); }
  void ExecuteSqlEx(const std::string& sql, bool flag) override {
    object_.run(L"ExecuteSqlEx", sql, flag);
  }
  std::string DatabaseType() override;
  std::string ConnectionString() override;

  IDispatch* get() const { return object_.get(); }

 private:
  LateObject object_;
  LateConnection connection_;
};

class LateAppObj : public AppObj {
 public:
  explicit LateAppObj(IDispatch* object) : object_(object, "AppObj") {}
  std::string AppDatabaseConnectionString() override;
  IDispatch* get() const { return object_.get(); }

 private:
  LateObject object_;
};

class LateClientObj : public ClientObj {
 public:
  explicit LateClientObj(IDispatch* object) : object_(object, "ClientObj") {}
  std::int32_t CurrentUserID() override;
  std::string CurrentBranchCode() override;
  IDispatch* get() const { return object_.get(); }

 private:
  LateObject object_;
};

}  // namespace kt7::adapters
