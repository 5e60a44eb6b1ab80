#include "fronts/common/run_sentences.h"

namespace kt7::cli {

std::string notPaid(const std::string& employee, Date payDate, const std::string& cause) {
  return employee + " was not paid on " + payDate.isoDateText() + ": " + cause;
}

std::string counted(int count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace kt7::cli
