#include "host/trace/traced_connection.h"

namespace kt7::trace {

TracedConnection::TracedConnection(std::unique_ptr<ado::Connection> inner, StepObserver& observer)
    : owned_(std::move(inner)), inner_(*owned_), on_(kOnOwn), observer_(observer) {}

TracedConnection::TracedConnection(ado::Connection& inner, std::string_view on,
                                   StepObserver& observer)
    : inner_(inner), on_(on), observer_(observer) {}

void TracedConnection::Open(const std::string& connectionString, const std::string& user,
                            const std::string& password, int options) {
  observed(observer_, stepOf(StepKind::Open, on_),
           [&] { inner_.Open(connectionString, user, password, options); });
}

void TracedConnection::Close() {
  observed(observer_, stepOf(StepKind::Close, on_), [&] { inner_.Close(); });
}

void TracedConnection::Execute(const std::string& sql) {
  observed(observer_, stepOf(StepKind::Execute, on_, sql), [&] { inner_.Execute(sql); });
}

void TracedConnection::BeginTrans() {
  observed(observer_, stepOf(StepKind::Begin, on_), [&] { inner_.BeginTrans(); });
}

void TracedConnection::CommitTrans() {
  observed(observer_, stepOf(StepKind::Commit, on_), [&] { inner_.CommitTrans(); });
}

void TracedConnection::RollbackTrans() {
  observed(observer_, stepOf(StepKind::Rollback, on_), [&] { inner_.RollbackTrans(); });
}

std::string_view onOf(const ado::ActiveConnection& active) {
  if (!active.connection()) return kOnOwn;
  const auto* traced = dynamic_cast<const TracedConnection*>(active.connection());
  return traced ? traced->on() : std::string_view();
}

}  // namespace kt7::trace
