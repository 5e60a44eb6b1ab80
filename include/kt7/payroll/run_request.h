#pragma once

#include <optional>
#include <string>
#include <vector>

#include <kt7/payroll/input_row.h>
#include <kt7/payroll/month.h>

namespace kt7::payroll {

/// How a process takes part in a shared run.
struct Sharing {
  std::string name;       // of the process, for people
  int leaseSeconds = 60;  // a part without a renewal for so long may be taken over
  int employees = 200;    // in a part
};

/// A month to be paid.
struct RunRequest {
  Month month;
  std::string type;  // "" for all types in use
  std::vector<InputRow> input;
  int jobs = 1;  // workers at a time
  std::optional<Sharing> sharing = {};
};

}  // namespace kt7::payroll
