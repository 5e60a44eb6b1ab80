#include "fronts/common/money_text.h"

#include "payroll/facts/satang.h"

namespace kt7::cli {

std::string satangText(Currency amount) {
  const std::string four = payroll::toSatang(amount).toText();
  return four.substr(0, four.size() - 2);
}

std::string groupedText(Currency amount) {
  std::string text = satangText(amount);
  const std::size_t first = text.front() == '-' ? 1 : 0;
  for (std::size_t at = text.find('.'); at > first + 3;) text.insert(at -= 3, 1, ',');
  return text;
}

}  // namespace kt7::cli
