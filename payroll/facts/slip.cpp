#include <kt7/payroll/slip.h>

namespace kt7::payroll {

void Slip::add(std::string_view kindCode, Counts counts, Currency amount, double quantity) {
  const ItemKind kind = itemKind(kindCode);
  items.push_back({std::string(kindCode), std::string(kind.name), quantity, counts, amount});
}

}  // namespace kt7::payroll
