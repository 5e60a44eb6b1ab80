#include <kt7/host/data_obj.h>

#include <kt7/error.h>
#include "host/data/contract/database.h"

namespace kt7::host {

HostDataObj::HostDataObj(std::string connectionString)
    : connectionString_(std::move(connectionString)),
      databaseType_(data::namedDatabaseType(connectionString_)),
      connection_(data::createConnection()) {}

HostDataObj::~HostDataObj() = default;

ado::Connection& HostDataObj::Connection() {
  if (opens_ == 0) {
    raiseCollaborator(error_number::kCallFailed,
                      "the data object's connection is closed: call OpenConnection first");
  }
  return *connection_;
}

std::string HostDataObj::DatabaseType() {
  if (databaseType_.empty()) databaseType_ = data::databaseType(connectionString_);
  return databaseType_;
}

void HostDataObj::OpenConnection() {
  if (opens_ == 0) connection_->Open(connectionString_);
  ++opens_;
}

void HostDataObj::CloseConnection() {
  if (opens_ == 0) return;
  if (--opens_ > 0) return;
  inTransaction_ = false;
  connection_->Close();
}

void HostDataObj::BeginTransaction() {
  Connection().BeginTrans();
  inTransaction_ = true;
}

void HostDataObj::CommitTransaction() {
  Connection().CommitTrans();
  inTransaction_ = false;
}

void HostDataObj::RollbackTransaction() {
  Connection().RollbackTrans();
  inTransaction_ = false;
}

void HostDataObj::ExecuteSql(const std::string& sql) { Connection().Execute(sql); }
void HostDataObj::ExecuteSqlEx(const std::string& sql, bool) { Connection().Execute(sql); }

void HostDataObj::closeDownTo(int opens) {
  while (opens_ > opens) CloseConnection();
}

void HostDataObj::reset(int opens) {
  try {
    if (inTransaction_) RollbackTransaction();
    if (opens_ > 0 && data::isLost(*connection_)) closeDownTo(0);
  } catch (const Error&) {
    // A connection that cannot roll back is not fit for use: drop it and take another.
    closeDownTo(0);
  }
  closeDownTo(opens);
  while (opens_ < opens) OpenConnection();
}

}  // namespace kt7::host
