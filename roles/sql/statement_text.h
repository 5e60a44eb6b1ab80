#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "roles/sql/sql_lexer.h"

namespace kt7::data {

/// What an engine wants changed in a text before it runs.
struct Dialect {
  bool limitForTop = false;    // "SELECT TOP n ..." becomes "... LIMIT n"
  bool wholeYears = false;     // "year(x)" becomes a whole number that also compares with '2016'
  bool yearsByText = false;    // the same without a function of ours: by the calendar of SQLite
  bool liftsLiterals = false;  // quoted values become placeholders and are bound
  bool numberedPlaceholders = false;  // "$1" in the place of "?"
  bool foldsTableNames = false;       // KT7T... and KT7V... become lower case
  bool runsSeveral = false;           // the engine would run every statement of a text
  bool separatesByWords = false;      // it would even without a semicolon between them
  bool definitionsCommit = false;     // CREATE and its kin commit an open transaction
};

/// A statement as the engine gets it, and the texts to bind. Reused from statement to statement.
class StatementText {
 public:
  /// Only SELECT, INSERT, UPDATE and DELETE are touched, and only where they lex.
  void read(std::string_view sql, const Dialect& dialect);
  /// As `read`, without the semicolons at its end. A statement error for an empty text, for one
  /// with a zero character and for anything after the first statement.
  void readOne(const std::string& sql, const Dialect& dialect);

  std::string_view text() const { return text_; }
  /// In the order of their "?", quotes taken off.
  const std::vector<std::string>& literals() const { return literals_; }
  /// How many "?" the text came with.
  std::size_t parameters() const { return parameters_; }
  /// Of a text read by `readOne`: surely, whatever the engine would say.
  bool answersNoRows() const { return answersNoRows_; }
  /// Of a text read by `readOne`: the engine would commit an open transaction first.
  bool commitsFirst() const { return commitsFirst_; }

 private:
  friend class StatementRewriter;
  void rewrite(std::string_view sql, const Dialect& dialect, bool lexes);
  std::string text_;
  std::vector<std::string> literals_;
  std::vector<Token> tokens_;
  std::size_t parameters_ = 0;
  bool answersNoRows_ = false;
  bool commitsFirst_ = false;
};

/// The table after the first FROM; "" when it is not a plain name.
std::string tableOfSelect(std::string_view sql);

}  // namespace kt7::data
