#pragma once

#include "base/error.h"
#include "collab/ado.h"

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
  /// Where statements of another kind have ended it: commits what there is and begins anew.
  void beginAgain() {
    connection_.CommitTrans();
    connection_.BeginTrans();
  }
  void commit() {
    connection_.CommitTrans();
    committed_ = true;
  }

 private:
  ado::Connection& connection_;
  bool committed_ = false;
};

}  // namespace kt7::schema
