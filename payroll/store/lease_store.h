#pragma once

#include "payroll/ports/leases.h"
#include "payroll/store/records.h"

namespace kt7::payroll {

/// The parts of shared runs in the table KT7TRunLease. A row changes hands by an UPDATE that names
/// what was read, never by a lock: that holds on a cluster too.
class LeaseStore : public RunLeases {
 public:
  LeaseStore(Records& records, DataObj& dataObj) : records_(records), dataObj_(dataObj) {}

  Date now() override;
  std::optional<PartRow> head(const std::string& run) override;
  void makeHead(const RunPart& head, const std::string& worker, Date until) override;
  std::vector<PartRow> heads(const Month& month) override;
  bool publishParts(const RunPart& head, const std::string& worker,
                    const std::vector<RunPart>& parts, const std::function<Date()>& until) override;
  std::vector<PartRow> freeParts(const std::string& part, const std::string& worker,
                                 Date now) override;
  std::vector<PartRow> parts(const std::string& run) override;
  int countUndone(const std::string& part) override;
  int countAllUndone(const std::string& run) override;
  std::optional<PartRow> latestPart(const std::string& run, Date now) override;
  bool take(const PartRow& row, const std::string& worker, Date until) override;
  bool mark(const RunPart& part, const std::string& worker, PartState state, Date until) override;
  bool prolongInTransaction(const RunPart& part, const std::string& worker, Date until) override;

 private:
  std::vector<PartRow> read(const std::string& query);
  void insert(const PartRow& row);
  bool update(const RunPart& part, const std::string& condition, const std::string& worker,
              PartState state, Date until);
  bool isHeldBy(const RunPart& part, const std::string& worker);
  std::string moment(Date date) const;
  std::string rowOf(const RunPart& part) const;
  std::string named(const std::pair<std::string, std::string>& names) const;
  std::string partsOf(const std::string& run) const;
  std::string ownedBy(const std::string& worker) const;
  int count(const std::string& where);

  Records& records_;
  DataObj& dataObj_;
};

}  // namespace kt7::payroll
