#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <kt7/payroll/month.h>

namespace kt7::payroll {

/// Some employees of a slip period of a shared run, whom one worker at a time pays.
struct RunPart {
  std::string run;      // the name of the run or, but for its head, of this part of it
  std::string from;     // the code before the first
  std::string to;       // the last code; of a run's head what all who join must agree on
  int firstNumber = 0;  // new slips are numbered behind it
};

enum class PartState { Open, Taken, Done };

/// A part as it stands in the database.
struct PartRow {
  RunPart part;
  std::string worker;  // who took it last
  PartState state = PartState::Open;
  Date until;  // a part that is taken is free again after it
};

/// The parts of shared runs and who has them, in the company's database. Whoever takes a part has
/// it until a moment by the clock of the database's server, and renews that while at work. Failures
/// are Error of kind database; nothing is kept then.
class RunLeases {
 public:
  virtual ~RunLeases() = default;

  /// The clock of the database's server.
  virtual Date now() = 0;
  virtual std::optional<PartRow> head(const std::string& run) = 0;
  /// The heads of all runs of the month.
  virtual std::vector<PartRow> heads(const Month& month) = 0;
  /// Makes the head of a run, taken by that worker; an error where another one made it first.
  virtual void makeHead(const RunPart& head, const std::string& worker, Date until) = 0;
  /// Puts the parts in place of all that the run had and marks its head, which the worker must
  /// have, as done. False where another one has it by now. `until` is asked last, as writing many
  /// parts takes a while.
  virtual bool lay(const RunPart& head, const std::string& worker,
                   const std::vector<RunPart>& parts, const std::function<Date()>& until) = 0;
  /// Some parts of that name that are open, free again at `now` or the worker's already.
  virtual std::vector<PartRow> freeParts(const std::string& run, const std::string& worker,
                                         Date now) = 0;
  /// All parts of the run, those of a name together and in the order of their codes.
  virtual std::vector<PartRow> parts(const std::string& run) = 0;
  virtual int countUndone(const std::string& run) = 0;
  /// How many parts of the run are not done, whatever their name; and the part with the latest sign
  /// of life that one may have given at `now`.
  virtual int countAllUndone(const std::string& run) = 0;
  virtual std::optional<PartRow> latestPart(const std::string& run, Date now) = 0;
  /// Makes the row, as it was read, the worker's. False where somebody was quicker.
  virtual bool take(const PartRow& row, const std::string& worker, Date until) = 0;
  /// Prolongs or ends what the worker has. False where it has been taken over.
  virtual bool mark(const RunPart& part, const std::string& worker, PartState state,
                    Date until) = 0;
  /// Prolongs what the worker has within the unit of work that is open, which can be kept only if
  /// nobody takes the part over meanwhile. False where somebody has.
  virtual bool hold(const RunPart& part, const std::string& worker, Date until) = 0;
};

}  // namespace kt7::payroll
