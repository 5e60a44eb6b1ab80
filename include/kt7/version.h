#pragma once

/// The version of the headers; the build reads it from here. CHANGELOG.md says what a change of
/// each number means.
#define KT7_VERSION_MAJOR 0
#define KT7_VERSION_MINOR 2
#define KT7_VERSION_PATCH 0

#include <string_view>

#include <kt7/export.h>

namespace kt7 {

/// The version of the library that runs, as "0.2.0".
KT7_API std::string_view libraryVersion();

}  // namespace kt7
