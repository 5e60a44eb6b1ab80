#pragma once

#include <cstdio>
#include <memory>
#include <vector>

#include "screen.h"

struct screen;

namespace kt7::screens {

/// The terminal that the program runs in, as a whole screen for as long as the object lives; what
/// stood on it comes back. Works whatever the standard streams are, which stay untouched. One at a
/// time.
class Terminal {
 public:
  /// Whether there is a terminal that can place text on a screen.
  static bool isUsable();

  /// std::runtime_error where it is not usable.
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  ScreenSize size() const;
  void show(const std::vector<ScreenLine>& lines);
  /// Waits for a key. What was typed before the screen was seen can be dropped first.
  Key read();
  void dropTypedAhead();

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  class Utf8Characters;

  std::unique_ptr<Utf8Characters> characters_;
  std::unique_ptr<std::FILE, CloseFile> in_;
  std::unique_ptr<std::FILE, CloseFile> out_;
  struct screen* screen_ = nullptr;
};

}  // namespace kt7::screens
