#include "payroll/facts/slip_number.h"

#include "base/text.h"

namespace kt7::payroll {

namespace {

constexpr int kSequenceWidth = 7;

std::string numberPrefix(Date payDate) {
  return padded(payDate.year(), 4) + padded(payDate.month(), 2) + padded(payDate.day(), 2) + "-";
}

}  // namespace

std::string slipNumber(Date payDate, int sequence) {
  if (sequence > kHighestSequence) return "";
  return numberPrefix(payDate) + padded(sequence, kSequenceWidth);
}

int slipSequence(const std::string& number, Date payDate) {
  const std::string prefix = numberPrefix(payDate);
  int sequence = 0;
  if (!number.starts_with(prefix)) return 0;
  DigitReader reader(std::string_view(number).substr(prefix.size()));
  return reader.number(kSequenceWidth, sequence) && reader.atEnd() ? sequence : 0;
}

}  // namespace kt7::payroll
