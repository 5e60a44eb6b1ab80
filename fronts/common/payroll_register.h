#pragma once

#include <iosfwd>
#include <map>
#include <memory>
#include <string>

#include <kt7/payroll/register_amounts.h>
#include <kt7/payroll/slip.h>
#include "fronts/common/table_writer.h"

namespace kt7::cli {

/// Slips that were added up for a line below the register.
struct RegisterTotal {
  int slips = 0;
  payroll::RegisterAmounts amounts;
};

/// A pay register written as the slips come. Nothing is kept of a slip but what it adds to the
/// totals of its type.
class RegisterWriter {
 public:
  virtual ~RegisterWriter() = default;

  void add(const payroll::Slip& slip);
  /// Ends the register, also one without a slip.
  void finish();
  /// Ends a register that others were to follow: says so, and adds nothing up. Where nothing is
  /// written yet nothing is.
  void breakOff(const std::string& cause);
  bool begun() const { return begun_; }

 protected:
  using Totals = std::map<std::string, RegisterTotal>;

  virtual void writeHead() = 0;
  virtual void writeSlip(const payroll::Slip& slip, const payroll::RegisterAmounts& amounts) = 0;
  virtual void writeFoot(const Totals& totalsByType) = 0;
  virtual void writeBreak(const std::string& cause) = 0;

 private:
  void beginOnce();

  bool begun_ = false;
  Totals totals_;
};

/// What the form of a register depends on beside its name.
struct RegisterForm {
  /// Cells of a table's line. A narrow one goes without columns and dates without their year;
  /// kAnyWidth shows all there is.
  int width = kAnyWidth;
  /// How to see the columns that a narrow table goes without: "--wide shows them".
  std::string seeTheRest = {};
  /// Codes are data and stay as they are in a CSV file, but what a terminal would obey becomes a
  /// blank on one.
  bool forTerminal = false;
};

/// "table": for people, with totals by type; "csv" and "json": one record a slip.
std::unique_ptr<RegisterWriter> registerWriter(const std::string& format, std::ostream& out,
                                               const std::string& month,
                                               const RegisterForm& form = {});

}  // namespace kt7::cli
