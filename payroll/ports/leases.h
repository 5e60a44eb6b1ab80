#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <kt7/payroll/month.h>

namespace kt7::payroll {

/// What one worker at a time may lease of a shared run: its head, which is the right to plan the
/// month, or a part, which is the right to pay some employees of a slip period.
struct RunPart {
  std::string name;              // as run_names.h makes it
  std::string afterCode = {};    // a part's employees come after this code,
  std::string lastCode = {};     // up to this one
  int sequenceBefore = 0;        // a part's new slip numbers come after this sequence
  std::string fingerprint = {};  // a head's: of request and plan (share/run_fingerprint.h)
};

enum class PartState { Open, Taken, Done };

/// A head or part with its lease, as read from the database.
struct PartRow {
  RunPart part;
  std::string worker;  // who took it last
  PartState state = PartState::Open;
  Date until;  // when the lease of a taken part ends
};

/// The leases of shared runs, in the company's database. A lease ends at a moment by the clock of
/// the database's server; its worker renews it while at work. Failures are Error of kind database
/// and leave everything as it was.
class RunLeases {
 public:
  virtual ~RunLeases() = default;

  /// The clock of the database's server.
  virtual Date now() = 0;
  virtual std::optional<PartRow> head(const std::string& run) = 0;
  /// The heads of all runs of the month.
  virtual std::vector<PartRow> heads(const Month& month) = 0;
  /// Inserts the head of a run, leased by that worker; an error if another one inserted it first.
  virtual void makeHead(const RunPart& head, const std::string& worker, Date until) = 0;
  /// Replaces the run's parts and marks its head as done; false if the worker has lost the head.
  /// `until` is called once more after the parts are written, which takes a while.
  [[nodiscard]] virtual bool publishParts(const RunPart& head, const std::string& worker,
                                          const std::vector<RunPart>& parts,
                                          const std::function<Date()>& until) = 0;
  /// Some parts of that name that are open, whose lease ended before `now`, or which the worker
  /// has already.
  virtual std::vector<PartRow> freeParts(const std::string& part, const std::string& worker,
                                         Date now) = 0;
  /// All parts of the run, by name and in the order of their codes.
  virtual std::vector<PartRow> parts(const std::string& run) = 0;
  /// How many parts of that name are not done.
  virtual int countUndone(const std::string& part) = 0;
  /// How many parts of the run are not done.
  virtual int countAllUndone(const std::string& run) = 0;
  /// The part of the run whose lease ends last, leaving out ends that no clock at `now` can have
  /// set (lease_length.h).
  virtual std::optional<PartRow> latestPart(const std::string& run, Date now) = 0;
  /// Takes the lease if the row is unchanged since it was read; false if another worker took it.
  [[nodiscard]] virtual bool take(const PartRow& row, const std::string& worker, Date until) = 0;
  /// Renews the worker's lease, or ends it with PartState::Done; false if another worker took it.
  [[nodiscard]] virtual bool mark(const RunPart& part, const std::string& worker, PartState state,
                                  Date until) = 0;
  /// Renews the lease in the open transaction, which then commits only if no other worker takes the
  /// part meanwhile; false if one has.
  [[nodiscard]] virtual bool prolongInTransaction(const RunPart& part, const std::string& worker,
                                                  Date until) = 0;
};

}  // namespace kt7::payroll
