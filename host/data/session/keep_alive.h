#pragma once

#include <optional>

#include "host/data/session/connection_string.h"

namespace kt7::data {

/// When a server's machine that went silent counts as lost. A statement may run for hours: its
/// machine goes on answering the network's own questions, which are asked in these seconds.
struct KeepAlive {
  int lostAfter;
  int firstQuestion;
  int nextQuestion;
  int questions;
};

/// What "KeepAlive=" says in seconds, 30 without it; nothing for 0: as the operating system has it.
/// A connection error for anything but a whole number up to a day.
std::optional<KeepAlive> keepAliveIn(const ConnectionString& where);

}  // namespace kt7::data
