#pragma once

#include <string>
#include <vector>

/// What a screen shows and what a person presses, apart from any terminal.
namespace kt7::screens {

struct ScreenSize {
  int height = 0;
  int width = 0;
};

enum class LineStyle { Plain, Title, Header, Cursor, Status };

/// One line of the screen, at most as wide as the screen.
struct ScreenLine {
  std::string text;
  LineStyle style = LineStyle::Plain;
};

enum class KeyKind {
  Text,  // a character, in Key::text
  Up,
  Down,
  PageUp,
  PageDown,
  First,
  Last,
  Erase,
  EraseAll,
  MarkAll,
  Enter,
  Escape,
  Resize,  // the screen has another size now
  Gone,    // the terminal went away
  Other
};

struct Key {
  KeyKind kind = KeyKind::Other;
  std::string text;
};

}  // namespace kt7::screens
