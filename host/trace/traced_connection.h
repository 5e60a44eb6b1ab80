#pragma once

#include <memory>

#include "host/data/contract/database.h"
#include "host/trace/step.h"

namespace kt7::trace {

/// A connection whose openings, transactions and statements are observed.
class TracedConnection : public data::WrappedConnection {
 public:
  /// A connection of the library's own.
  TracedConnection(std::unique_ptr<ado::Connection> inner, StepObserver& observer);
  /// A connection that somebody else owns and that outlives this object.
  TracedConnection(ado::Connection& inner, std::string_view on, StepObserver& observer);

  ado::Connection& inner() override { return inner_; }
  std::string_view on() const { return on_; }

  void CursorLocation(int location) override { inner_.CursorLocation(location); }
  void Open(const std::string& connectionString, const std::string& user,
            const std::string& password, int options) override;
  void Close() override;
  void Execute(const std::string& sql) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

 private:
  std::unique_ptr<ado::Connection> owned_;
  ado::Connection& inner_;
  std::string_view on_;
  StepObserver& observer_;
};

/// Whose connection a recordset or a lookup works on; "" for a connection that is not observed.
std::string_view onOf(const ado::ActiveConnection& active);

}  // namespace kt7::trace
