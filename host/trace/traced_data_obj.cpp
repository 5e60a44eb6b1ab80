#include "host/trace/traced_data_obj.h"

namespace kt7::trace {

ado::Connection& TracedDataObj::Connection() {
  ado::Connection& connection = inner_.Connection();
  if (!connection_) connection_.emplace(connection, kOnDataObject, observer_);
  return *connection_;
}

void TracedDataObj::OpenConnection() {
  observed(observer_, stepOf(StepKind::Open, kOnDataObject), [&] { inner_.OpenConnection(); });
}

void TracedDataObj::CloseConnection() {
  observed(observer_, stepOf(StepKind::Close, kOnDataObject), [&] { inner_.CloseConnection(); });
}

void TracedDataObj::BeginTransaction() {
  observed(observer_, stepOf(StepKind::Begin, kOnDataObject), [&] { inner_.BeginTransaction(); });
}

void TracedDataObj::CommitTransaction() {
  observed(observer_, stepOf(StepKind::Commit, kOnDataObject), [&] { inner_.CommitTransaction(); });
}

void TracedDataObj::RollbackTransaction() {
  observed(observer_, stepOf(StepKind::Rollback, kOnDataObject),
           [&] { inner_.RollbackTransaction(); });
}

void TracedDataObj::ExecuteSql(const std::string& sql) {
  Step step = stepOf(StepKind::Execute, kOnDataObject, sql);
  step.operation = "ExecuteSql";
  observed(observer_, step, [&] { inner_.ExecuteSql(sql); });
}

void TracedDataObj::ExecuteSqlEx(const std::string& sql, bool flag) {
  Step step = stepOf(StepKind::Execute, kOnDataObject, sql);
  step.operation = "ExecuteSqlEx";
  observed(observer_, step, [&] { inner_.ExecuteSqlEx(sql, flag); });
}

}  // namespace kt7::trace
