#pragma once

#include "payroll/ports/company.h"
#include "payroll/ports/slip_book.h"
#include "payroll/store/records.h"

namespace kt7::payroll {

/// Slips in the company's database, a unit being a transaction of the data object.
class SlipStore : public SlipBook {
 public:
  SlipStore(Records& records, DataObj& dataObj) : records_(records), dataObj_(dataObj) {}

  void begin() override { dataObj_.BeginTransaction(); }
  void save(const Slip& slip) override;
  void remove(const KnownSlip& slip) override;
  bool stands(const Slip& slip) override;
  void commit() override { dataObj_.CommitTransaction(); }
  void rollback() noexcept override;

 private:
  void requireEmployee(const Slip& slip);
  void requireOwner(const KnownSlip& slip);
  void saveDocument(const Slip& slip);
  void saveItems(const Slip& slip);

  Records& records_;
  DataObj& dataObj_;
};

}  // namespace kt7::payroll
