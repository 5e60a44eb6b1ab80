#include "host/machine/local_time.h"

namespace kt7::host {

std::tm localCalendarTime(std::time_t seconds) {
  std::tm local{};
  localtime_r(&seconds, &local);
  return local;
}

}  // namespace kt7::host
