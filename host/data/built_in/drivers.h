#pragma once

namespace kt7::data {

/// Makes every driver known whose client library was there when this was built.
void useBuiltInDrivers();

}  // namespace kt7::data
