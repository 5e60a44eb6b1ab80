#include "payroll/run/shared_plan.h"

#include <map>

#include "base/text.h"
#include "payroll/run/month_end.h"

namespace kt7::payroll {

namespace {

constexpr std::chrono::milliseconds kLongestPause(300);

std::string partsName(const std::string& run, std::size_t period) {
  return run + "/" + padded(static_cast<int>(period), 3);
}

/// What all who share a run must have been given alike, as a short text.
std::string agreementOf(const RunRequest& request) {
  std::uint64_t digest = 14695981039346656037U;  // FNV-1a
  const auto add = [&digest](const std::string& text) {
    for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 1099511628211U;
    digest = (digest ^ 0xFFU) * 1099511628211U;
  };
  add(request.type);
  for (const InputRow& row : request.input) {
    for (const std::string* const text :
         {&row.employee, &row.payDate, &row.kind, &row.quantity, &row.amount}) {
      add(*text);
    }
  }
  return std::to_string(digest);
}

class Joining {
 public:
  Joining(const RunRequest& request, RunServices& services, RunListener& listener,
          const std::string& worker)
      : request_(request),
        services_(services),
        listener_(listener),
        worker_(worker),
        head_{request.month.text() + (request.type.empty() ? "" : " " + request.type), "",
              agreementOf(request), 0} {}

  /// None where somebody else was quicker or is at it: look again.
  std::optional<SharedPlan> attempt() {
    if (services_.catchUp) services_.catchUp();
    const auto head = services_.leases.head(head_.run);
    const Date now = services_.leases.now();
    if (!head) {
      services_.leases.makeHead(head_, worker_, until(now));
      return planAsFirst();
    }
    if (head->state == PartState::Done && isUnderWay(now)) return member(*head);
    if (head->state != PartState::Done && head->worker != worker_ && now < head->until) {
      return std::nullopt;
    }
    PartRow mine = *head;
    mine.part.to = head_.to;
    if (!services_.leases.take(mine, worker_, until(now))) return std::nullopt;
    return planAsFirst();
  }

 private:
  Date until(Date now) const { return later(now, request_.sharing->leaseSeconds); }

  bool isUnderWay(Date now) {
    return services_.leases.countAllUndone(head_.run) > 0 &&
           now < services_.leases.lastUntil(head_.run);
  }

  SharedPlan member(const PartRow& head) {
    if (head.part.to != head_.to) {
      throw RunStopped(RunStopped::Cause::Refused,
                       {"a shared run of " + request_.month.text() +
                        " with another input or type is under way: wait for its end"});
    }
    return {head.part, head.worker, planMonth(request_, services_, listener_, Preparation::Done)};
  }

  /// Where there is nothing to be paid as things stand, nobody has to wait for this one to end.
  std::optional<SharedPlan> planAsFirst() {
    try {
      return planned();
    } catch (const RunStopped&) {
      services_.leases.mark(head_, worker_, PartState::Done, services_.leases.now());
      throw;
    }
  }

  std::optional<SharedPlan> planned() {
    SharedPlan shared{head_, worker_, planMonth(request_, services_, listener_)};
    noteUntypedEmployees(shared.plan, services_, listener_);
    const std::vector<RunPart> parts = partsOf(shared);
    if (!services_.leases.lay(head_, worker_, parts, until(services_.leases.now()))) {
      return std::nullopt;
    }
    return shared;
  }

  /// The employees of every period in parts, each with numbers of its own for new slips. They do
  /// not depend on who is paid already, so that whoever takes a part over gives the same numbers.
  std::vector<RunPart> partsOf(const SharedPlan& shared) {
    std::vector<RunPart> parts;
    std::map<std::int32_t, int> lastSequence;  // by pay date
    for (std::size_t i = 0; i < shared.plan.periods.size(); ++i) {
      const SlipPeriod& period = shared.plan.periods[i];
      if (period.frozen) continue;
      auto known = lastSequence.find(period.payDate.dayNumber());
      if (known == lastSequence.end()) {
        const std::string last = services_.company.lastSlipNumber(period.payDate);
        known = lastSequence.emplace(period.payDate.dayNumber(), slipSequence(last, period.payDate))
                    .first;
      }
      append(parts, shared.partsOf(i), period, known->second);
    }
    parts.push_back(shared.end());
    return parts;
  }

  void append(std::vector<RunPart>& parts, const std::string& name, const SlipPeriod& period,
              int& lastSequence) {
    EmployeeQuery query{period.type, period.salary, "", request_.sharing->employees};
    for (;;) {
      const auto employees = services_.company.employees(query);
      if (employees.empty()) return;
      parts.push_back({name, query.afterCode, employees.back().code, lastSequence});
      query.afterCode = employees.back().code;
      lastSequence += static_cast<int>(employees.size());
    }
  }

  const RunRequest& request_;
  RunServices& services_;
  RunListener& listener_;
  const std::string& worker_;
  RunPart head_;
};

}  // namespace

std::string SharedPlan::partsOf(std::size_t period) const { return partsName(head.run, period); }

Date later(Date moment, int seconds) {
  constexpr double kSecondsPerDay = 86400;
  return Date::fromSerial(moment.serial() + seconds / kSecondsPerDay);
}

SharedPlan joinRun(const RunRequest& request, RunServices& services, RunListener& listener,
                   const std::string& worker) {
  Joining joining(request, services, listener, worker);
  RunOutcome joiningOnly;
  Recovery recovery(services, joiningOnly);
  Patience patience;
  for (;;) {
    try {
      if (auto shared = joining.attempt()) return std::move(*shared);
      pauseUpTo(kLongestPause);
    } catch (const Error& error) {
      if (!recovery.triesAgainAfter(failureOf(error), patience)) throw;
    }
  }
}

}  // namespace kt7::payroll
