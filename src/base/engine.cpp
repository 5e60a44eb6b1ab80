#include <kt7/engine.h>

#include <array>

#include "base/text.h"

namespace kt7 {

namespace {

constexpr std::array<std::string_view, 5> kDatabaseTypes{"SQLITE", "MYSQL", "POSTGRESQL",
                                                         "MICROSOFT SQL SERVER", ""};

}  // namespace

Engine engineOf(std::string_view databaseType) {
  for (std::size_t i = 0; i < static_cast<std::size_t>(Engine::Other); ++i) {
    if (equalNoCase(kDatabaseTypes[i], databaseType)) return static_cast<Engine>(i);
  }
  return Engine::Other;
}

std::string_view databaseTypeOf(Engine engine) {
  return kDatabaseTypes[static_cast<std::size_t>(engine)];
}

}  // namespace kt7
