// Stands for a program of the system: prints how it was called.

#include <windows.h>

#include <cstdio>

int main() {
  std::puts(GetCommandLineA());
  return 0;
}
