#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/data/sql_lexer.h"

namespace kt7::data {

/// What an engine wants changed in a text before it runs.
struct Dialect {
  bool limitForTop = false;    // "SELECT TOP n ..." becomes "... LIMIT n"
  bool wholeYears = false;     // "year(x)" becomes a whole number that also compares with '2016'
  bool liftsLiterals = false;  // quoted values become "?" and are bound
};

/// A statement as the engine gets it, and the texts to bind. Reused from statement to statement.
class StatementText {
 public:
  /// Only SELECT, INSERT, UPDATE and DELETE are touched, and only where they lex.
  void read(std::string_view sql, const Dialect& dialect);

  std::string_view text() const { return text_; }
  /// In the order of their "?", quotes taken off.
  const std::vector<std::string>& literals() const { return literals_; }

 private:
  friend class StatementRewriter;
  std::string text_;
  std::vector<std::string> literals_;
  std::vector<Token> tokens_;
};

/// The table after the first FROM; "" when it is not a plain name.
std::string tableOfSelect(std::string_view sql);

}  // namespace kt7::data
