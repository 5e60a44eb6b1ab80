#include <unistd.h>
#include <ext/stdio_filebuf.h>

#include <iostream>

#include "fronts/cli/commands/run.h"
#include "fronts/cli/line/signals.h"
#include "fronts/cli/screens/terminal.h"
#include "fronts/cli/screens/windows.h"
#include "standard_streams.h"

int main(int argc, char** argv) {
  kt7::cli::keepStandardDescriptors();
  // Unlike that of std::cin, its end is never an input that could not be read.
  __gnu_cxx::stdio_filebuf<char> inBuffer(STDIN_FILENO, std::ios::in);
  std::istream in(&inBuffer);
  if (!inBuffer.is_open()) in.setstate(std::ios::badbit);
  kt7::cli::ignoreFileSizeLimit();
  kt7::cli::Console console{in,
                            std::cout,
                            std::cerr,
                            isatty(STDOUT_FILENO) == 1,
                            isatty(STDERR_FILENO) == 1,
                            isatty(STDIN_FILENO) == 1};
  console.width = kt7::cli::outputWidth().value_or(kt7::cli::kUnknownWidth);
  // A person sits there also where the result goes elsewhere: codes=$(kt7hr call SelectEmployee).
  const bool someoneSees = console.outIsTerminal || console.errIsTerminal;
  if (console.inIsTerminal && someoneSees && kt7::screens::Terminal::isUsable()) {
    console.picker = kt7::screens::pickOnTerminal;
    console.messageView = kt7::screens::showOnTerminal;
  }
  return kt7::cli::run(argc, argv, console);
}
