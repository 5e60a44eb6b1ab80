#include "terminal.h"

#include <curses.h>
#include <langinfo.h>
#include <term.h>

#include <algorithm>
#include <clocale>
#include <cstring>
#include <cwchar>
#include <stdexcept>
#include <string>

// The library's macros of these names stand in the way of C++.
#undef lines
#undef columns

namespace kt7::screens {

namespace {

constexpr const char* kTerminalDevice = "/dev/tty";
constexpr int kEscapeDelay = 25;  // ms to wait for the rest of a function key

constexpr wint_t control(char letter) { return static_cast<wint_t>(letter - 'A' + 1); }

struct KeyCode {
  wint_t code;
  KeyKind kind;
};

constexpr KeyCode kFunctionKeys[] = {
    {KEY_UP, KeyKind::Up},           {KEY_DOWN, KeyKind::Down},   {KEY_PPAGE, KeyKind::PageUp},
    {KEY_NPAGE, KeyKind::PageDown},  {KEY_HOME, KeyKind::First},  {KEY_END, KeyKind::Last},
    {KEY_BACKSPACE, KeyKind::Erase}, {KEY_ENTER, KeyKind::Enter}, {KEY_RESIZE, KeyKind::Resize},
};

constexpr KeyCode kControlKeys[] = {
    {L'\r', KeyKind::Enter},
    {L'\n', KeyKind::Enter},
    {27, KeyKind::Escape},
    {127, KeyKind::Erase},
    {L'\b', KeyKind::Erase},
    {control('U'), KeyKind::EraseAll},
    {control('A'), KeyKind::MarkAll},
    {control('P'), KeyKind::Up},
    {control('N'), KeyKind::Down},
};

template <std::size_t Count>
KeyKind kindOf(const KeyCode (&keys)[Count], wint_t code) {
  const auto* at =
      std::find_if(keys, keys + Count, [&](const KeyCode& key) { return key.code == code; });
  return at != keys + Count ? at->kind : KeyKind::Other;
}

Key textKey(wint_t code) {
  constexpr wint_t kFirstPrintable = 32;
  if (code < kFirstPrintable) return {};
  std::mbstate_t state{};
  std::string bytes(MB_CUR_MAX, '\0');
  const std::size_t size = std::wcrtomb(bytes.data(), static_cast<wchar_t>(code), &state);
  if (size == static_cast<std::size_t>(-1)) return {};
  bytes.resize(size);
  return {KeyKind::Text, bytes};
}

attr_t attributesOf(LineStyle style) {
  switch (style) {
    case LineStyle::Title:
      return A_BOLD;
    case LineStyle::Header:
      return A_UNDERLINE;
    case LineStyle::Cursor:
      return A_REVERSE;
    case LineStyle::Status:
      return A_DIM;
    case LineStyle::Plain:
      break;
  }
  return A_NORMAL;
}

}  // namespace

/// Characters of the C library in UTF-8, for the terminal alone: Thai in and out.
class Terminal::Utf8Characters {
 public:
  Utf8Characters() {
    if (const char* before = std::setlocale(LC_CTYPE, nullptr)) before_ = before;
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
  }
  ~Utf8Characters() { std::setlocale(LC_CTYPE, before_.c_str()); }
  Utf8Characters(const Utf8Characters&) = delete;
  Utf8Characters& operator=(const Utf8Characters&) = delete;

 private:
  std::string before_ = "C";
};

bool Terminal::isUsable() {
  const std::unique_ptr<std::FILE, CloseFile> device(std::fopen(kTerminalDevice, "r+"));
  if (!device) return false;
  int problem = 0;
  const char* name = std::getenv("TERM");
  if (name == nullptr || setupterm(name, fileno(device.get()), &problem) != OK) return false;
  const char* placing = tigetstr("cup");
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the mark of a capability that is no text
  const char* const noText = reinterpret_cast<const char*>(-1);
  const bool places = placing != nullptr && placing != noText;
  del_curterm(cur_term);
  return places;
}

Terminal::Terminal()
    : characters_(std::make_unique<Utf8Characters>()),
      in_(std::fopen(kTerminalDevice, "r")),
      out_(std::fopen(kTerminalDevice, "w")) {
  if (in_ && out_) screen_ = newterm(nullptr, out_.get(), in_.get());
  if (screen_ == nullptr) throw std::runtime_error("there is no terminal to show a screen on");
  set_term(screen_);
  set_escdelay(kEscapeDelay);
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  curs_set(0);
}

Terminal::~Terminal() {
  endwin();
  delscreen(screen_);
}

ScreenSize Terminal::size() const { return {getmaxy(stdscr), getmaxx(stdscr)}; }

void Terminal::show(const std::vector<ScreenLine>& lines) {
  erase();
  for (int row = 0; row < static_cast<int>(lines.size()) && row < size().height; ++row) {
    const ScreenLine& line = lines[static_cast<std::size_t>(row)];
    attrset(static_cast<int>(attributesOf(line.style)));
    mvaddstr(row, 0, line.text.c_str());
  }
  attrset(A_NORMAL);
  refresh();
}

Key Terminal::read() {
  wint_t code = 0;
  const int result = get_wch(&code);
  if (result == ERR) return {KeyKind::Gone, ""};
  if (result == KEY_CODE_YES) return {kindOf(kFunctionKeys, code), ""};
  const KeyKind kind = kindOf(kControlKeys, code);
  return kind != KeyKind::Other ? Key{kind, ""} : textKey(code);
}

void Terminal::dropTypedAhead() { flushinp(); }

}  // namespace kt7::screens
