#pragma once

#include <memory>
#include <string>

#include <kt7/contract/platform.h>

namespace kt7 {

/// A connection of the operation's own on the data object's database, closed when it goes out of
/// scope unless closed before.
class OwnConnection {
 public:
  /// The data object is asked for its connection string when the connection stands ready.
  OwnConnection(Platform& platform, DataObj& dataObj) : OwnConnection(platform) {
    open(dataObj.ConnectionString());
  }
  OwnConnection(Platform& platform, const std::string& connectionString) : OwnConnection(platform) {
    open(connectionString);
  }
  OwnConnection(const OwnConnection&) = delete;
  OwnConnection& operator=(const OwnConnection&) = delete;
  ~OwnConnection();

  void close() {
    open_ = false;
    connection_->Close();
  }
  ado::Connection& operator*() { return *connection_; }
  ado::Connection* operator->() { return connection_.get(); }

 private:
  explicit OwnConnection(Platform& platform) : connection_(platform.createConnection()) {
    connection_->CursorLocation(ado::kClientSide);
  }
  void open(const std::string& connectionString) {
    connection_->Open(connectionString, "", "", ado::kUnspecified);
    open_ = true;
  }

  std::unique_ptr<ado::Connection> connection_;
  bool open_ = false;
};

/// A recordset that is open from construction on and closed when it goes out of scope unless closed
/// before: static, read-only for reading, optimistic for writing.
class OpenRecordset {
 public:
  OpenRecordset(Platform& platform, const std::string& source, const ado::ActiveConnection& on,
                int lockType = ado::kReadOnly)
      : recordset_(platform.createRecordset()) {
    recordset_->Open(source, on, ado::kStatic, lockType, ado::kUnspecified);
    open_ = true;
  }
  OpenRecordset(const OpenRecordset&) = delete;
  OpenRecordset& operator=(const OpenRecordset&) = delete;
  ~OpenRecordset();

  void close() {
    open_ = false;
    recordset_->Close();
  }
  ado::Recordset& operator*() { return *recordset_; }
  ado::Recordset* operator->() { return recordset_.get(); }

 private:
  std::unique_ptr<ado::Recordset> recordset_;
  bool open_ = false;
};

}  // namespace kt7
