#include "payroll/month/month_updates.h"

#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include "payroll/ports/run_services.h"
#include "payroll/retry/recovery.h"

namespace kt7::payroll {

namespace {

/// Whether the update succeeded. The updates trap their errors, a lost connection too, and report
/// them by a message only. They are repeated once the database answers; the message is shown if
/// the last attempt fails.
bool isDone(const std::function<void()>& update, RunServices& services, RunOutcome& outcome) {
  constexpr int kTries = 3;
  for (int tries = 1;; ++tries) {
    try {
      const std::vector<std::string> messages = services.messagesOf(update);
      if (messages.empty()) return true;
      if (tries == kTries) {
        for (const std::string& text : messages) services.showMessage(text);
        return false;
      }
    } catch (const Error&) {  // before there was anything to roll back
      if (tries == kTries) throw;
    }
    ++outcome.retries;
    Recovery(services, outcome).retryOnLoss([&] { services.company.types(); });
  }
}

}  // namespace

void updateStatuses(RunServices& services, RunListener& listener, RunOutcome& outcome) {
  const auto update = [&] { services.hr.UpdateEmployeeStatus(services.dataObj); };
  if (isDone(update, services, outcome)) return;
  listener.note("the statuses of the employees could not be brought up to date");
}

void generatePeriods(const Month& month, RunServices& services, RunOutcome& outcome) {
  constexpr bool kAllTypes = false;
  const auto update = [&] { services.hr.UpdatePeriodStatus(services.dataObj, kAllTypes); };
  if (isDone(update, services, outcome)) return;
  throw RunStopped(RunStopped::Cause::Refused,
                   {"the slip periods of " + month.text() + " could not be generated"});
}

}  // namespace kt7::payroll
