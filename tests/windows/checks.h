#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// Counts what holds; what does not is printed at once.
namespace kt7::client {

void check(bool holds, std::string_view what);
void checkEqual(std::string_view got, std::string_view expected, std::string_view what);
void checkStatus(HRESULT got, HRESULT expected, std::string_view what);

/// Prints "N passed, M failed"; 0 when all passed and there were as many as expected.
int summary(int expected);

}  // namespace kt7::client
