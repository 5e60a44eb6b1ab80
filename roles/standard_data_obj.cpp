#include <kt7/roles/standard_data_obj.h>

#include <kt7/error.h>
#include "roles/data/connection.h"

namespace kt7::roles {

StandardDataObj::StandardDataObj(std::shared_ptr<data::Sessions> sessions,
                                 std::string connectionString, std::string databaseType)
    : sessions_(std::move(sessions)),
      connectionString_(std::move(connectionString)),
      databaseType_(std::move(databaseType)),
      connection_(std::make_unique<data::Connection>(*sessions_)) {}

StandardDataObj::~StandardDataObj() = default;

ado::Connection& StandardDataObj::Connection() {
  if (opens_ == 0) {
    raiseCollaborator(error_number::kCallFailed,
                      "the data object's connection is closed: call OpenConnection first");
  }
  return *connection_;
}

void StandardDataObj::OpenConnection() {
  if (opens_ == 0) connection_->Open(connectionString_, "", "", ado::kUnspecified);
  ++opens_;
}

void StandardDataObj::CloseConnection() {
  if (opens_ == 0) return;
  if (--opens_ > 0) return;
  inTransaction_ = false;
  connection_->Close();
}

void StandardDataObj::BeginTransaction() {
  Connection().BeginTrans();
  inTransaction_ = true;
}

void StandardDataObj::CommitTransaction() {
  Connection().CommitTrans();
  inTransaction_ = false;
}

void StandardDataObj::RollbackTransaction() {
  Connection().RollbackTrans();
  inTransaction_ = false;
}

void StandardDataObj::ExecuteSql(const std::string& sql) { Connection().Execute(sql); }
void StandardDataObj::ExecuteSqlEx(const std::string& sql, bool) { Connection().Execute(sql); }

void StandardDataObj::closeDownTo(int opens) {
  while (opens_ > opens) CloseConnection();
}

void StandardDataObj::reset(int opens) {
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

}  // namespace kt7::roles
