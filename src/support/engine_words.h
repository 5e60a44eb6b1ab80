#pragma once

#include <array>
#include <cstddef>

#include <kt7/engine.h>

namespace kt7 {

/// What each engine calls things that no standard names.
struct EngineWords {
  /// The server's clock to the second in universal time: sessions may have several time zones.
  const char* utcNow;
  /// Behind a SELECT: nobody else changes its rows until the transaction ends. "" where the engine
  /// is not known to lock rows that are read.
  const char* lockingRows;
};

inline const EngineWords& wordsOf(Engine engine) {
  static constexpr const char* kForUpdate = " FOR UPDATE";
  // PostgreSQL's CURRENT_TIMESTAMP stands still within a transaction.
  static constexpr std::array<EngineWords, 5> kWords{
      {{.utcNow = "CURRENT_TIMESTAMP", .lockingRows = ""},
       {.utcNow = "UTC_TIMESTAMP()", .lockingRows = kForUpdate},
       {.utcNow = "DATE_TRUNC('second', CLOCK_TIMESTAMP() AT TIME ZONE 'UTC')",
        .lockingRows = kForUpdate},
       {.utcNow = "GETUTCDATE()", .lockingRows = ""},
       {.utcNow = "CURRENT_TIMESTAMP", .lockingRows = ""}}};
  return kWords[static_cast<std::size_t>(engine)];
}

}  // namespace kt7
