#pragma once

#include <string>

#include <kt7/export.h>
#include <kt7/payroll/slip.h>

namespace kt7::payroll {

/// What the caller of a run hears while it goes on: in the caller's thread, whatever the number of
/// workers. An exception of its own ends the run as an error would.
class KT7_API RunListener {
 public:
  virtual ~RunListener() = default;

  /// A slip that was written and committed.
  virtual void paid(const Slip& slip) = 0;
  /// A slip of a frozen period, unchanged.
  virtual void standing(const Slip& /*slip*/) {}
  /// A remark for people, such as a message that an operation showed.
  virtual void note(const std::string& text) = 0;
  /// An employee who was not paid on that date, and why.
  virtual void failed(const std::string& employee, Date payDate, const std::string& cause) = 0;
  /// Whether to call `progress`, which costs a count of the employees.
  virtual bool wantsProgress() const { return false; }
  virtual void progress(int /*done*/, int /*total*/) {}
  /// Whether to end the run early. Asked between pages and while the run waits.
  virtual bool wantsToStop() const { return false; }
};

}  // namespace kt7::payroll
