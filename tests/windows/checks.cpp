#include "checks.h"

#include <cstdio>
#include <cstdlib>

namespace kt7::client {

namespace {

int passed = 0;
int failed = 0;

std::string hexText(HRESULT status) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(status));
  return text;
}

}  // namespace

void check(bool holds, std::string_view what) {
  if (std::getenv("KT7_CLIENT_VERBOSE") != nullptr) {
    std::printf("%s %.*s\n", holds ? "ok" : "not ok", static_cast<int>(what.size()), what.data());
  }
  if (holds) {
    ++passed;
    return;
  }
  ++failed;
  std::printf("FAILED %.*s\n", static_cast<int>(what.size()), what.data());
}

void checkEqual(std::string_view got, std::string_view expected, std::string_view what) {
  check(got == expected, std::string(what) + "\n  got      " + std::string(got) + "\n  expected " +
                             std::string(expected));
}

void checkStatus(HRESULT got, HRESULT expected, std::string_view what) {
  checkEqual(hexText(got), hexText(expected), what);
}

int summary(int expected) {
  std::printf("%d passed, %d failed\n", passed, failed);
  if (passed + failed != expected) {
    std::printf("FAILED %d checks were expected\n", expected);
    return 1;
  }
  return failed == 0 ? 0 : 1;
}

}  // namespace kt7::client
