#include "plain_tax_questions.h"

#include <stdexcept>
#include <string_view>

namespace kt7::bench {

namespace {

constexpr const char* kSettings[] = {"MoneyExpendses", "MoneyExpensesNotOver", "MoneySale",
                                     "STAXMinRate",    "STAXMaxRate",          "STAXSelfRate"};

int columnOf(sqlite3_stmt* statement, std::string_view name) {
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    if (sqlite3_column_name(statement, i) == name) return i;
  }
  throw std::runtime_error("no column " + std::string(name));
}

}  // namespace

PlainTaxQuestions::PlainTaxQuestions(const std::string& file) {
  if (sqlite3_open_v2(file.c_str(), &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                      nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
  setting_ = prepare("SELECT TSetNumber FROM KT7TSetting WHERE TSetKey=?");
  brackets_ =
      prepare("SELECT * FROM KT7TTaxRate WHERE TTxRTTaxAlias = 'PTAX' ORDER BY TTxRFromBase DESC");
}

PlainTaxQuestions::~PlainTaxQuestions() {
  sqlite3_finalize(setting_);
  sqlite3_finalize(brackets_);
  sqlite3_close(database_);
}

sqlite3_stmt* PlainTaxQuestions::prepare(const char* sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(database_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) !=
      SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
  return statement;
}

double PlainTaxQuestions::setting(const std::string& key) {
  sqlite3_bind_text(setting_, 1, key.data(), static_cast<int>(key.size()), SQLITE_STATIC);
  const double value =
      sqlite3_step(setting_) == SQLITE_ROW ? sqlite3_column_double(setting_, 0) : 0;
  sqlite3_reset(setting_);
  return value;
}

double PlainTaxQuestions::brackets() {
  static const int from = columnOf(brackets_, "TTxRFromBase");
  static const int rate = columnOf(brackets_, "TTxRRate");
  double sum = 0;
  while (sqlite3_step(brackets_) == SQLITE_ROW) {
    sum += sqlite3_column_double(brackets_, from) + sqlite3_column_double(brackets_, rate);
  }
  sqlite3_reset(brackets_);
  return sum;
}

double PlainTaxQuestions::ask() {
  double sum = 0;
  for (const char* const key : kSettings) sum += setting(key);
  return sum + brackets() + brackets();
}

}  // namespace kt7::bench
