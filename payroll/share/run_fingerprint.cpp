#include "payroll/share/run_fingerprint.h"

#include <kt7/payroll/input_row.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

namespace {

constexpr char kBeforePlan = '/';

/// FNV-1a of several texts.
class Digest {
 public:
  Digest& add(const std::string& text) {
    for (const char c : text) take(static_cast<unsigned char>(c));
    take(0xFFU);
    return *this;
  }
  std::string text() const { return std::to_string(digest_); }

 private:
  void take(unsigned c) { digest_ = (digest_ ^ c) * 1099511628211U; }

  std::uint64_t digest_ = 14695981039346656037U;
};

std::string digestOf(const MonthPlan& plan) {
  Digest digest;
  for (const SlipPeriod& period : plan.periods) {
    digest.add(period.name()).add(period.salary.text()).add(period.frozen ? "frozen" : "");
  }
  return digest.text();
}

}  // namespace

std::string requestFingerprint(const RunRequest& request) {
  Digest digest;
  digest.add(request.type);
  for (const InputRow& row : request.input) {
    digest.add(row.employee).add(row.payDate).add(row.kind).add(row.quantity).add(row.amount);
  }
  return digest.text();
}

std::string runFingerprint(const std::string& requestFingerprint, const MonthPlan& plan) {
  return requestFingerprint + kBeforePlan + digestOf(plan);
}

bool isPlanned(const PartRow& head) {
  return head.state == PartState::Done &&
         head.part.fingerprint.find(kBeforePlan) != std::string::npos;
}

bool isOfRequest(const PartRow& head, const std::string& requestFingerprint) {
  return head.part.fingerprint.substr(0, head.part.fingerprint.find(kBeforePlan)) ==
         requestFingerprint;
}

}  // namespace kt7::payroll
