#include "payroll/ports/run_names.h"

#include "base/text.h"

namespace kt7::payroll {

std::string runName(const Month& month, const std::string& type) {
  return month.text() + (type.empty() ? "" : " " + replaceAll(type, "/", "//"));
}

std::string partName(const std::string& run, const std::string& what) { return run + "/" + what; }

bool isPartName(const std::string& name) {
  return replaceAll(name, "//", "").find('/') != std::string::npos;
}

// Codes compare byte for byte: "/" comes right before "0", " " right before "!".

std::pair<std::string, std::string> partNames(const std::string& run) {
  return {run + "/0", run + "0"};
}

std::pair<std::string, std::string> runNames(const Month& month) {
  return {month.text(), month.text() + "!"};
}

}  // namespace kt7::payroll
