#include "host/data/session/loopback.h"

#include "base/text.h"

namespace kt7::data {

namespace {

bool isLoopbackV4(std::string_view host) {
  constexpr int kLoopback = 127, kLast = 255;
  DigitReader reader(host);
  int first = 0, part = 0;
  if (!reader.numberUpTo(3, first) || first != kLoopback) return false;
  for (int i = 0; i < 3; ++i) {
    if (!reader.sign('.') || !reader.numberUpTo(3, part) || part > kLast) return false;
  }
  return reader.atEnd();
}

}  // namespace

bool isLoopback(std::string_view host) {
  constexpr std::string_view kMapped = "::ffff:";
  if (equalNoCase(host.substr(0, kMapped.size()), kMapped)) host.remove_prefix(kMapped.size());
  return equalNoCase(host, "localhost") || host == "::1" || isLoopbackV4(host);
}

}  // namespace kt7::data
