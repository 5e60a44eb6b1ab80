#pragma once

#include <span>
#include <string>
#include <vector>

#include "roles/data/snapshot.h"
#include "roles/sql/lru_cache.h"
#include "roles/sql/statement_text.h"

namespace kt7::data {

/// Statements with "?" for an engine that takes values as literals: each is translated into the
/// engine's dialect once and kept.
class StatementTemplates {
 public:
  StatementTemplates();

  /// The statement with literals in the place of its "?", valid until the next call. A statement
  /// error for another number of values than it takes and for a text with a zero character.
  const std::string& withLiterals(const std::string& sql, std::span<const Stored> values,
                                  const Dialect& dialect);

 private:
  /// The text before, between and after the "?": one piece more than there are "?".
  using Pieces = std::vector<std::string>;
  static Pieces piecesOf(const std::string& sql, const Dialect& dialect);

  LruCache<Pieces> kept_;
  std::string text_;
};

}  // namespace kt7::data
