#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>

#include <kt7/host/platform.h>
#include "fronts/common/table_writer.h"

namespace kt7::cli {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

/// The command was called in a way that it cannot obey; the text says what to do.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where a command reads and writes. Colour, indentation and progress only on a terminal, questions
/// only to a person who sits at one.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool outIsTerminal = false;
  bool errIsTerminal = false;
  bool inIsTerminal = false;
  /// Cells of a line of tables; a common one where no terminal tells.
  int width = kUnknownWidth;
  /// What lets the person at the terminal pick records and shows messages; empty without one.
  host::Picker picker = {};
  host::HostPlatform::MessageView messageView = {};
};

/// "kt7hr: text" on the error stream, in one line and printable.
void say(Console& console, const std::string& text);

}  // namespace kt7::cli
