#include "roles/sql/statement_text.h"

#include <algorithm>
#include <array>

#include <kt7/error.h>
#include "base/text.h"
#include "roles/sql/statement_kind.h"

namespace kt7::data {

namespace {

/// Where in a statement a token stands, as far as it matters to what may be lifted.
enum class Region : std::uint8_t { Elsewhere, SelectList, Condition, Assignments, Values };

struct Keyword {
  std::string_view word;
  Region region;
};

// A word that ends a region is listed even where it opens none of interest: a quoted text after it
// may name a column, or be a column's name in the result.
constexpr Keyword kRegionWords[] = {
    {"SELECT", Region::SelectList}, {"WHERE", Region::Condition},     {"SET", Region::Assignments},
    {"VALUES", Region::Values},     {"FROM", Region::Elsewhere},      {"GROUP", Region::Elsewhere},
    {"ORDER", Region::Elsewhere},   {"HAVING", Region::Elsewhere},    {"LIMIT", Region::Elsewhere},
    {"OFFSET", Region::Elsewhere},  {"RETURNING", Region::Elsewhere}, {"ON", Region::Elsewhere},
    {"WINDOW", Region::Elsewhere},  {"JOIN", Region::Elsewhere},      {"USING", Region::Elsewhere}};

constexpr std::string_view kStatements[] = {"SELECT", "INSERT", "UPDATE", "DELETE"};
constexpr std::string_view kComparisons[] = {"=", "==", "<>", "!=", "<", ">", "<=", ">="};
constexpr std::string_view kWordsBeforeValues[] = {"LIKE", "BETWEEN", "AND"};

// Beyond it a list of values is longer than is worth a statement of its own.
constexpr std::size_t kMostLiterals = 200;

template <class List>
bool isOneOf(std::string_view word, const List& list) {
  return std::any_of(std::begin(list), std::end(list),
                     [word](std::string_view entry) { return isWordOf(entry, word); });
}

/// The names of this system's tables, views and indexes begin alike.
bool isOwnTable(std::string_view word) {
  return word.size() > 4 && isWordOf("KT7", word.substr(0, 3));
}

std::string withoutQuotes(std::string_view quoted) {
  std::string text;
  for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
    text += quoted[i];
    if (quoted[i] == '\'') ++i;
  }
  return text;
}

struct Edit {
  std::size_t begin = 0;
  std::size_t length = 0;
  std::string replacement;
};

}  // namespace

class StatementRewriter {
 public:
  StatementRewriter(std::string_view sql, const Dialect& dialect, StatementText& out)
      : sql_(sql), dialect_(dialect), out_(out), tokens_(out.tokens_) {}

  void run() {
    const bool withParameters = std::any_of(tokens_.begin(), tokens_.end(), [](const Token& token) {
      return token.kind == TokenKind::Parameter;
    });
    lifts_ = dialect_.liftsLiterals && isOneOf(word(0), kStatements) && !withParameters;
    knowsRegions_ = lifts_ || dialect_.wholeYears || dialect_.yearsByText;
    levels_.emplace_back().open = lifts_;
    for (std::size_t i = 0; i < tokens_.size(); ++i) visit(i);
    while (!levels_.empty()) closeLevel(tokens_.size());
    compose();
  }

 private:
  /// One pair of parentheses, the outermost being the statement.
  struct Level {
    Region region = Region::Elsewhere;
    bool open = false;  // everything around it stands where values may be lifted
    std::string limit;
    bool isYear = false;
    std::size_t yearWord = 0;
  };

  std::string_view word(std::size_t i) const {
    return i < tokens_.size() ? sql_.substr(tokens_[i].begin, tokens_[i].length)
                              : std::string_view{};
  }
  bool isSymbol(std::size_t i, std::string_view symbol) const {
    return i < tokens_.size() && tokens_[i].kind == TokenKind::Symbol && word(i) == symbol;
  }
  bool isWord(std::size_t i, std::string_view text) const {
    return i < tokens_.size() && tokens_[i].kind == TokenKind::Word && isWordOf(text, word(i));
  }

  void visit(std::size_t i) {
    switch (tokens_[i].kind) {
      case TokenKind::Word:
        visitWord(i);
        break;
      case TokenKind::Symbol:
        visitSymbol(i);
        break;
      case TokenKind::Text:
        if (!mayLift(i)) break;
        out_.literals_.push_back(withoutQuotes(word(i)));
        edits_.push_back({tokens_[i].begin, tokens_[i].length, placeholder()});
        break;
      case TokenKind::Parameter:
        visitParameter(i);
        break;
      default:
        break;
    }
  }

  void visitSymbol(std::size_t i) {
    const char symbol = sql_[tokens_[i].begin];
    if (symbol == '(') openLevel(i);
    if (symbol == ')' && levels_.size() > 1) closeLevel(i);
  }

  void visitParameter(std::size_t i) {
    if (word(i) != "?") return;
    ++out_.parameters_;
    if (!dialect_.numberedPlaceholders) return;
    // "1.$1", ":$1" and "$1$2" would be other tokens than "1.?", ":?" and "??".
    constexpr std::string_view kApart = " \t\r\n\f(,=<>";
    const bool isApart = kApart.find(before(i)) != std::string_view::npos;
    edits_.push_back({tokens_[i].begin, tokens_[i].length,
                      (isApart ? "$" : " $") + std::to_string(out_.parameters_)});
  }

  std::string placeholder() const {
    return dialect_.numberedPlaceholders ? "$" + std::to_string(out_.literals_.size()) : "?";
  }

  void visitWord(std::size_t i) {
    if (dialect_.foldsTableNames && isOwnTable(word(i))) {
      edits_.push_back({tokens_[i].begin, tokens_[i].length, lowerCase(word(i))});
      return;
    }
    if (!knowsRegions_) {
      if (dialect_.limitForTop && isWordOf("SELECT", word(i))) readTop(i);
      return;
    }
    for (const Keyword& keyword : kRegionWords) {
      if (!isWordOf(keyword.word, word(i))) continue;
      levels_.back().region = keyword.region;
      if (dialect_.limitForTop && keyword.region == Region::SelectList) readTop(i);
      return;
    }
  }

  void readTop(std::size_t select) {
    std::size_t top = select + 1;
    if (isWord(top, "DISTINCT") || isWord(top, "ALL")) ++top;
    if (!isWord(top, "TOP") || top + 1 >= tokens_.size()) return;
    const std::size_t number = top + 1;
    if (tokens_[number].kind != TokenKind::Number) return;
    levels_.back().limit = " LIMIT " + std::string(word(number));
    edits_.push_back({tokens_[top].begin, tokens_[number].end() - tokens_[top].begin, ""});
  }

  void openLevel(std::size_t i) {
    const Level& around = levels_.back();
    Level inside;
    const bool holdsValues = around.region == Region::Condition || around.region == Region::Values;
    inside.region = holdsValues ? around.region : Region::Elsewhere;
    inside.open = around.open && holdsValues;
    inside.isYear = (dialect_.wholeYears || dialect_.yearsByText) && i > 0 &&
                    isWord(i - 1, "year") && !(i > 1 && isSymbol(i - 2, "."));
    inside.yearWord = i - 1;
    levels_.push_back(std::move(inside));
  }

  void closeLevel(std::size_t i) {
    const Level level = std::move(levels_.back());
    levels_.pop_back();
    if (!level.limit.empty()) edits_.push_back({limitPlace(i), 0, level.limit});
    if (level.isYear && i < tokens_.size()) castYear(level.yearWord, i);
  }

  /// Behind the last token of the SELECT that ends before token `i`.
  std::size_t limitPlace(std::size_t i) const {
    while (i > 0 && isSymbol(i - 1, ";")) --i;
    return i > 0 ? tokens_[i - 1].end() : 0;
  }

  void castYear(std::size_t yearWord, std::size_t close) {
    std::string after = " AS INTEGER)";
    // A bare "year(x)" of a select list keeps its text as the name of the column.
    if (levels_.back().region == Region::SelectList && startsItem(yearWord) && endsItem(close)) {
      const std::size_t begin = tokens_[yearWord].begin;
      const std::string_view name = sql_.substr(begin, tokens_[close].end() - begin);
      if (name.find('"') == std::string_view::npos) after.append(" AS \"").append(name) += '"';
    }
    if (dialect_.yearsByText) {
      edits_.push_back({tokens_[yearWord].begin,
                        tokens_[yearWord + 1].end() - tokens_[yearWord].begin,
                        "CAST(strftime('%Y', "});
    } else {
      edits_.push_back({tokens_[yearWord].begin, 0, "CAST("});
    }
    edits_.push_back({tokens_[close].end(), 0, after});
  }

  bool startsItem(std::size_t i) const {
    return i > 0 && (isSymbol(i - 1, ",") || isWord(i - 1, "SELECT") || isWord(i - 1, "DISTINCT") ||
                     tokens_[i - 1].kind == TokenKind::Number);
  }
  bool endsItem(std::size_t i) const {
    return i + 1 >= tokens_.size() || isSymbol(i + 1, ",") || isSymbol(i + 1, ")") ||
           isSymbol(i + 1, ";") || isWord(i + 1, "FROM");
  }

  char before(std::size_t i) const {
    return tokens_[i].begin > 0 ? sql_[tokens_[i].begin - 1] : ' ';
  }

  /// Whether a placeholder in its place would be read with what stands beside it: "$1" of
  /// LIKE'x' with the word, "?" of 'x'1 with the digit.
  bool touchesWord(std::size_t i) const {
    const std::size_t end = tokens_[i].end();
    return continuesWord(before(i)) || (end < sql_.size() && continuesWord(sql_[end]));
  }

  bool mayLift(std::size_t i) const {
    const Level& level = levels_.back();
    if (!level.open || i == 0 || touchesWord(i)) return false;
    switch (level.region) {
      case Region::Assignments:
        return isOneOf(word(i - 1), kComparisons);
      case Region::Condition:
      case Region::Values:
        return isOneOf(word(i - 1), kComparisons) || isSymbol(i - 1, ",") || isSymbol(i - 1, "(") ||
               (tokens_[i - 1].kind == TokenKind::Word && isOneOf(word(i - 1), kWordsBeforeValues));
      case Region::Elsewhere:
      case Region::SelectList:
        break;
    }
    return false;
  }

  void compose() {
    std::stable_sort(edits_.begin(), edits_.end(),
                     [](const Edit& a, const Edit& b) { return a.begin < b.begin; });
    std::size_t at = 0;
    for (const Edit& edit : edits_) {
      out_.text_.append(sql_.substr(at, edit.begin - at)).append(edit.replacement);
      at = edit.begin + edit.length;
    }
    out_.text_.append(sql_.substr(at));
  }

  std::string_view sql_;
  const Dialect& dialect_;
  StatementText& out_;
  const std::vector<Token>& tokens_;
  bool lifts_ = false;
  bool knowsRegions_ = false;  // else only where a SELECT begins is of interest
  std::vector<Level> levels_;
  std::vector<Edit> edits_;
};

void StatementText::read(std::string_view sql, const Dialect& dialect) {
  rewrite(sql, dialect, lexSql(sql, tokens_));
}

void StatementText::readOne(const std::string& sql, const Dialect& dialect) {
  if (sql.find('\0') != std::string::npos) {
    raiseStatementFailed("a statement cannot contain a zero character", {sql, 0, {}});
  }
  const bool lexes = lexSql(sql, tokens_);
  const auto end = std::find_if(tokens_.begin(), tokens_.end(), [&sql](const Token& token) {
    return token.kind == TokenKind::Symbol && sql[token.begin] == ';';
  });
  if (end == tokens_.begin() && (lexes || end != tokens_.end())) {
    raiseStatementFailed("the statement is empty", {sql, 0, {}});
  }
  const std::size_t understood = tokens_.empty() ? 0 : tokens_.back().end();
  if (!lexes && dialect.runsSeveral && end == tokens_.end() &&
      sql.find(';', understood) != std::string::npos) {
    raiseStatementFailed("the statement is not surely one: it has a ';' and cannot be read here",
                         {sql, 0, {}});
  }
  std::string_view statement = sql;
  if (end != tokens_.end()) {
    if (!isBlankSql(statement.substr(end->end()))) {
      raiseStatementFailed("only one statement can run at a time", {sql, 0, {}});
    }
    statement = statement.substr(0, end->begin);
    tokens_.erase(end, tokens_.end());
  }
  if (dialect.separatesByWords && holdsSecondStatement(statement, tokens_)) {
    raiseStatementFailed("only one statement can run at a time", {sql, 0, {}});
  }
  rewrite(statement, dialect, lexes);
  answersNoRows_ = surelyWithoutRows(statement, tokens_, lexes);
  commitsFirst_ = dialect.definitionsCommit && commitsInMysql(statement, tokens_);
}

void StatementText::rewrite(std::string_view sql, const Dialect& dialect, bool lexes) {
  text_.clear();
  literals_.clear();
  parameters_ = 0;
  const std::string_view first = lexes && !tokens_.empty()
                                     ? sql.substr(tokens_[0].begin, tokens_[0].length)
                                     : std::string_view{};
  const bool known = isOneOf(first, kStatements) || equalNoCase(first, "WITH");
  if (!known && (first.empty() || !dialect.foldsTableNames)) {
    text_ = sql;
    return;
  }
  StatementRewriter(sql, dialect, *this).run();
  if (literals_.size() > kMostLiterals) {
    Dialect unlifted = dialect;
    unlifted.liftsLiterals = false;
    rewrite(sql, unlifted, lexes);
  }
}

std::string tableOfSelect(std::string_view sql) {
  std::string table;
  int depth = 0;
  bool afterFrom = false;
  // Where it does not lex to its end, the FROM stands before that place.
  lexSql(sql, [&](const Token& token) {
    const std::string_view word = sql.substr(token.begin, token.length);
    if (afterFrom) {
      if (token.kind == TokenKind::Word) table = word;
      return false;
    }
    if (word == "(") ++depth;
    if (word == ")") --depth;
    afterFrom = depth == 0 && token.kind == TokenKind::Word && isWordOf("FROM", word);
    return true;
  });
  return table;
}

}  // namespace kt7::data
