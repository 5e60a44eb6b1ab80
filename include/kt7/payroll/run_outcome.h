#pragma once

#include <kt7/export.h>

namespace kt7::payroll {

/// What a run did, counted.
struct KT7_API RunOutcome {
  int paid = 0;
  int failed = 0;  // slips that were due and could not be made or written
  int removed = 0;
  int conflicts = 0;  // transactions that met another connection's
  int losses = 0;     // lost connections
  int retries = 0;    // transactions that were repeated, for any reason

  RunOutcome& operator+=(const RunOutcome& other);
};

}  // namespace kt7::payroll
