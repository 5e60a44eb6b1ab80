#include <kt7/host/platform.h>

#include "host/data/contract/database.h"
#include "host/roles/permission_token.h"

namespace kt7::host {

HostPlatform::HostPlatform() : StandardPlatform(data::pooledSessions()) { setKeyedHash(keyedHash); }

HostPlatform::HostPlatform(Date fixedNow) : HostPlatform() { setNow(fixedNow); }

}  // namespace kt7::host
