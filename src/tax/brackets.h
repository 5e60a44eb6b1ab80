#pragma once

#include <span>
#include <vector>

namespace kt7::tax {

/// One row of the rate table: the tax on income above `from` (baht a year) is `rate` (a fraction).
struct Bracket {
  double from;
  double rate;
};

/// Progressive tax in baht on a year's net income; brackets with the highest lower bound first. A
/// remainder equal to a lower bound adds nothing for that bracket.
double walkBrackets(double netIncome, std::span<const Bracket> brackets);

}  // namespace kt7::tax
