#pragma once

#include <kt7/export.h>
#include <kt7/roles/picker.h>
#include <kt7/roles/standard_platform.h>

namespace kt7::host {

using roles::pickAlways;
using roles::Picker;
using roles::pickNever;

/// The platform of the reference host: its own drivers, and permission tokens by HMAC-SHA-256.
class KT7_API HostPlatform : public roles::StandardPlatform {
 public:
  HostPlatform();
  explicit HostPlatform(Date fixedNow);
};

}  // namespace kt7::host
