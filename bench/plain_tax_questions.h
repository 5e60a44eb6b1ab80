#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

namespace kt7::bench {

/// What a program would write by hand for the questions of one tax call: a kept connection, kept
/// prepared statements, the two columns it needs.
class PlainTaxQuestions {
 public:
  explicit PlainTaxQuestions(const std::string& file);
  ~PlainTaxQuestions();
  PlainTaxQuestions(const PlainTaxQuestions&) = delete;
  PlainTaxQuestions& operator=(const PlainTaxQuestions&) = delete;

  /// Six settings, then the brackets twice; answers the sum of all that was read.
  double ask();

 private:
  sqlite3_stmt* prepare(const char* sql);
  double setting(const std::string& key);
  double brackets();

  sqlite3* database_ = nullptr;
  sqlite3_stmt* setting_ = nullptr;
  sqlite3_stmt* brackets_ = nullptr;
};

}  // namespace kt7::bench
