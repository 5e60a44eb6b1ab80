#pragma once

#include <optional>
#include <string>

#include "fronts/com/database2/object_of.h"

namespace kt7::database2 {

/// A company in a database and its pay run, for scripts: make the company, fill it, pay a month,
/// read the register.
class PayrollObject {
 public:
  std::string ConnectionString() const { return connectionString_; }
  void setConnectionString(const std::string& text) { connectionString_ = text; }

  /// Makes the tables and views in a new database, and the sample company where `sample` is true.
  /// A collaborator error where the database holds a company already.
  void Create(const std::optional<bool>& sample);
  /// Adds the rows of a CSV file to a table, all or none; answers how many.
  std::int32_t Import(const std::string& table, const std::string& file);
  /// Pays a month ("2026-01"), of one employee type where one is named, with the month's time and
  /// amounts from a CSV file where one is named. Answers the register: "table", "csv" or "json".
  std::string Run(const std::string& month, const std::optional<std::string>& type,
                  const std::optional<std::string>& inputFile,
                  const std::optional<std::string>& format);

  /// Of the last run, also of one that an error ended: slips paid, slips that failed, one line for
  /// each note and failure, and the register of the slips paid.
  std::int32_t Paid() const { return last_.paid; }
  std::int32_t Failed() const { return last_.failed; }
  std::string Notes() const { return last_.notes; }
  std::string Register() const { return last_.slips; }

  struct LastRun {
    std::int32_t paid = 0;
    std::int32_t failed = 0;
    std::string notes;
    std::string slips;
  };

 private:
  std::string connectionString_;
  LastRun last_;
};

template <>
std::span<const MemberOf<PayrollObject>> membersOf<PayrollObject>();

}  // namespace kt7::database2
