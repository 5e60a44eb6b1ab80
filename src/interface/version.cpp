#include <kt7/version.h>

namespace kt7 {

std::string_view libraryVersion() { return KT7_LIBRARY_VERSION; }

}  // namespace kt7
