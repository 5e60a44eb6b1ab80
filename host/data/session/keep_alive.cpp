#include "host/data/session/keep_alive.h"

#include <algorithm>

#include <kt7/error.h>
#include "base/number_text.h"

namespace kt7::data {

std::optional<KeepAlive> keepAliveIn(const ConnectionString& where) {
  constexpr int kDefaultSeconds = 30;
  constexpr int kMostSeconds = 24 * 60 * 60;
  constexpr int kQuestions = 3;
  const std::string_view text = where.value("KeepAlive");
  int seconds = kDefaultSeconds;
  if (!text.empty()) {
    if (!readPlainNumber(text, seconds) || seconds < 0 || seconds > kMostSeconds) {
      raiseConnectionFailed("'" + std::string(text) +
                            "' is no KeepAlive; write seconds, such as KeepAlive=30, or 0");
    }
  }
  if (seconds == 0) return std::nullopt;
  const int first = std::max(1, seconds / 2);
  return KeepAlive{seconds, first, std::max(1, (seconds - first) / kQuestions), kQuestions};
}

}  // namespace kt7::data
