#pragma once

#include <kt7/payroll/input_row.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "host/trace/traced_data_obj.h"
#include "host/trace/traced_platform.h"
#include "paid_company.h"

namespace kt7::payroll {

/// Does something before steps of a worker.
class Interruption : public trace::StepObserver {
 public:
  explicit Interruption(std::function<void(const trace::Step& step)> act) : act_(std::move(act)) {}
  void before(const trace::Step& step) override { act_(step); }
  void after(const trace::Step&) override {}

 private:
  std::function<void(const trace::Step& step)> act_;
};

/// A process that ends in the middle of its work.
struct Dying : Told {
  void paid(const Slip& slip) override {
    Told::paid(slip);
    if (slip.employee.starts_with('Z') && slip.type == "M1")
      throw std::runtime_error("the process was ended");
  }
};

/// A company whose January several processes pay together.
class SharedCompany : public PaidCompany {
 protected:
  SharedCompany() { platform_.setNow(Month(2026, 1).lastDay()); }

  RunRequest requestFor(std::vector<InputRow> input = {}, const std::string& type = "",
                        int partSize = 30) {
    return {Month(2026, 1), type, std::move(input), 1, Sharing{"test", 600, partSize}};
  }
  RunOutcome share(RunListener& told, const RunRequest& request) {
    return paySharedMonth(request, told, [this] { return workplace(); });
  }
  RunOutcome share(RunListener& told, std::vector<InputRow> input = {}, int jobs = 1,
                   int partSize = 30) {
    RunRequest request = requestFor(std::move(input), "", partSize);
    request.jobs = jobs;
    return share(told, request);
  }
  /// The same by a process to which something happens on the way.
  RunOutcome share(RunListener& told, const RunRequest& request, trace::StepObserver& observer) {
    return paySharedMonth(request, told, [&] { return placeWith(observer); });
  }
  Workplace placeWith(trace::StepObserver& observer) {
    return {std::make_unique<Observed<host::HostPlatform, trace::TracedPlatform>>(
                observer, Month(2026, 1).lastDay()),
            std::make_unique<Observed<host::HostDataObj, trace::TracedDataObj>>(
                observer, database_.connectionString())};
  }

  /// One alone, to whom something happens on the way.
  RunOutcome payAlone(RunListener& told, const RunRequest& request, trace::StepObserver& observer) {
    const Workplace place = placeWith(observer);
    return payMonth(*place.platform, *place.dataObj, request, told);
  }

  /// Before the first unit of work after which the parts' rows are as `where` says.
  Interruption once(std::string where, std::function<void()> meanwhile) {
    return Interruption([this, where = std::move(where), meanwhile = std::move(meanwhile),
                         done = false](const trace::Step& step) mutable {
      if (done || step.kind != trace::StepKind::Begin || step.on != trace::kOnDataObject) return;
      if (!where.empty() && count("KT7TRunLease WHERE " + where) == 0) return;
      done = true;
      meanwhile();
    });
  }
  void letLeasesRunOut(const std::string& where) {
    sql("UPDATE KT7TRunLease SET TRLeUntil='2020-01-01 00:00:00' WHERE " + where);
  }
  std::vector<std::string> booksOfOneAlone() {
    pay(1);
    std::vector<std::string> books = this->books();
    forgetTheMonth();
    return books;
  }
  /// Who is paid what, under whichever number.
  std::vector<std::string> amounts() {
    return lines("SELECT " +
                 joined({"TEpSTEmpCode", "TEPSTEmTCode", "TEpsTSaPDate", "TEPSNetTotal"}) +
                 " AS line FROM KT7TEmpSlipDoc ORDER BY TEpSTEmpCode, TEpsTSaPDate");
  }

 private:
  template <typename Inner>
  struct Owned {
    Inner inner;
  };
  template <typename Inner, typename Traced>
  struct Observed : Owned<Inner>, Traced {
    template <typename Argument>
    Observed(trace::StepObserver& observer, Argument argument)
        : Owned<Inner>{Inner(std::move(argument))}, Traced(this->inner, observer) {}
  };
};

/// Some employees of a part are about to be written; or undue slips to be removed.
inline constexpr const char* kPaying = "TRLeState=1 AND TRLeRun LIKE '%/0%'";
inline constexpr const char* kEnding = "TRLeState=1 AND TRLeRun LIKE '%/end'";

}  // namespace kt7::payroll
