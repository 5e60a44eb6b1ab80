#include <unistd.h>

#include <iostream>

#include "fronts/cli/commands/run.h"

int main(int argc, char** argv) {
  kt7::cli::Console console{std::cin, std::cout, std::cerr, isatty(STDOUT_FILENO) == 1,
                            isatty(STDERR_FILENO) == 1};
  return kt7::cli::run(argc, argv, console);
}
