#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include <kt7/contract/data_tool.h>

/// Forwarding wrappers round the collaborators that show every step to an observer: a trace for
/// people, a fault injector for tests. Where nobody observes, nothing is wrapped.
namespace kt7::trace {

enum class StepKind {
  Open,
  Close,
  Begin,
  Commit,
  Rollback,
  Execute,
  Recordset,
  Update,
  Lookup,
  Query,
  Setting,
  Picker,
  Message
};

/// "open", "close", "begin" and so on.
std::string_view kindName(StepKind kind);

inline constexpr std::string_view kOnDataObject = "data object";
inline constexpr std::string_view kOnOwn = "own";

/// One call of a collaborator that reaches the database or a person. What does not belong to its
/// kind is empty. Valid for the length of the hook that it is passed to.
struct Step {
  StepKind kind = StepKind::Open;
  /// Whose connection: kOnDataObject, or kOnOwn for one of the library or of the collaborator.
  std::string_view on;
  /// Execute, Recordset, Query: the statement. Update: the SELECT whose row is written.
  std::string_view sql;
  /// The collaborator's operation by its published name ("LookupText"); empty for ADO objects.
  std::string_view operation;

  /// Lookup: the question, its table text as composed. Query: the field in resultColumn.
  std::string_view keyColumn, keyValue, resultColumn, table;
  /// Setting: the setting, the module or the right; empty for IsAdministrator.
  std::string_view key;
  /// Setting: whose right is asked for; 0 for other settings.
  std::int32_t user = 0;
  /// Update: true for a row from AddNew.
  bool addsRow = false;
  /// Message: what is shown.
  std::string_view text;
  /// Picker: what is shown, and whether several rows may be chosen.
  const PickerRequest* picker = nullptr;
  bool multi = false;
};

/// "recordset (own): SELECT ..." or "lookup (data object): TBraHolidayList of KT7TBranch where
/// TBraCode=BR01": a step on one line, for transcripts.
std::string lineOf(const Step& step);

/// Sees every step before and after it; `after` only where the step did not fail. What a hook
/// throws reaches the caller: from `before` the step did not happen, from `after` it did.
class StepObserver {
 public:
  virtual ~StepObserver() = default;
  virtual void before(const Step& step) = 0;
  virtual void after(const Step& step) = 0;
};

/// Does the step between the two hooks and answers what it answers.
template <class Act>
auto observed(StepObserver& observer, const Step& step, Act act) {
  observer.before(step);
  if constexpr (std::is_void_v<decltype(act())>) {
    act();
    observer.after(step);
  } else {
    auto answer = act();
    observer.after(step);
    return answer;
  }
}

/// A step that has only a kind, whose connection, and a statement.
inline Step stepOf(StepKind kind, std::string_view on, std::string_view sql = {}) {
  Step step;
  step.kind = kind;
  step.on = on;
  step.sql = sql;
  return step;
}

}  // namespace kt7::trace
