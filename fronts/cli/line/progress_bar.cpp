#include "progress_bar.h"

#include <algorithm>
#include <ostream>

namespace kt7::cli {

void ProgressBar::show(std::int64_t done, std::int64_t total, const std::string& what) {
  constexpr std::int64_t kCells = 40;
  if (!console_.errIsTerminal || total <= 0) return;
  const auto filled = static_cast<std::size_t>(std::clamp(kCells * done / total, {}, kCells));
  console_.out.flush();
  console_.err << "\r[" << std::string(filled, '#') << std::string(kCells - filled, ' ') << "] "
               << done << " of " << total << " " << what << "\x1b[K" << std::flush;
  shown_ = true;
}

void ProgressBar::clear() {
  if (!shown_) return;
  console_.err << "\r\x1b[K" << std::flush;
  shown_ = false;
}

}  // namespace kt7::cli
