#pragma once

#include <exception>

#include <kt7/contract/data_obj.h>

namespace kt7::payroll {

inline void rollBack(DataObj& dataObj) noexcept {
  try {
    dataObj.Connection().RollbackTrans();
  } catch (const std::exception&) {
    // A connection that is lost has nothing to roll back.
  }
}

/// A transaction of the data object, rolled back unless it was committed.
class UnitOfWork {
 public:
  explicit UnitOfWork(DataObj& dataObj) : dataObj_(dataObj) { dataObj_.BeginTransaction(); }
  UnitOfWork(const UnitOfWork&) = delete;
  UnitOfWork& operator=(const UnitOfWork&) = delete;
  ~UnitOfWork() {
    if (!committed_) rollBack(dataObj_);
  }

  void commit() {
    dataObj_.CommitTransaction();
    committed_ = true;
  }

 private:
  DataObj& dataObj_;
  bool committed_ = false;
};

}  // namespace kt7::payroll
