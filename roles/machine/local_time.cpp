#include "roles/machine/local_time.h"

namespace kt7::roles {

std::tm localCalendarTime(std::time_t moment) {
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &moment);
#else
  localtime_r(&moment, &local);
#endif
  return local;
}

}  // namespace kt7::roles
