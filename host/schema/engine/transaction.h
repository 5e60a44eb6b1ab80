#pragma once

#include <optional>

#include <kt7/contract/data_access.h>
#include <kt7/error.h>
#include "host/schema/engine/ddl.h"

namespace kt7::schema {

/// A transaction that is rolled back unless it was committed.
class Transaction {
 public:
  explicit Transaction(ado::Connection& connection) : connection_(connection) {
    connection_.BeginTrans();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction() {
    if (committed_) return;
    try {
      connection_.RollbackTrans();
    } catch (const Error&) {
      // The error that brought us here is the one to tell.
    }
  }
  void commit() {
    connection_.CommitTrans();
    committed_ = true;
  }

 private:
  ado::Connection& connection_;
  bool committed_ = false;
};

/// The same for making tables and then writing rows. Where every statement that makes something
/// commits by itself there is no transaction before the rows.
class MakingTransaction {
 public:
  MakingTransaction(ado::Connection& connection, Engine engine) : connection_(connection) {
    if (!keepsEveryStep(engine)) transaction_.emplace(connection);
  }
  /// From here on rows are written and nothing is made.
  void writeRows() {
    if (!transaction_) transaction_.emplace(connection_);
  }
  void commit() {
    if (transaction_) transaction_->commit();
  }

 private:
  ado::Connection& connection_;
  std::optional<Transaction> transaction_;
};

}  // namespace kt7::schema
