#include "support/opened.h"

namespace kt7 {

namespace {

// On the error path the first error is the one that matters; a second one from closing is dropped.
template <typename Closing>
void closeQuietly(Closing closing) noexcept {
  try {
    closing();
  } catch (...) {  // NOLINT(bugprone-empty-catch): see above
  }
}

}  // namespace

OwnConnection::~OwnConnection() {
  if (open_) closeQuietly([this] { close(); });
}

OpenRecordset::~OpenRecordset() {
  if (open_) closeQuietly([this] { close(); });
}

}  // namespace kt7
