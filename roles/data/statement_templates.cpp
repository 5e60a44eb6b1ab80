#include "roles/data/statement_templates.h"

#include "roles/data/server_values.h"

namespace kt7::data {

namespace {

constexpr std::size_t kKeptTexts = 128;

}  // namespace

StatementTemplates::StatementTemplates() : kept_(kKeptTexts) {}

StatementTemplates::Pieces StatementTemplates::piecesOf(const std::string& sql,
                                                        const Dialect& dialect) {
  StatementText rewritten;
  rewritten.read(sql, dialect);
  const std::string_view text = rewritten.text();
  std::vector<Token> tokens;
  lexSql(text, tokens);
  Pieces pieces;
  std::size_t at = 0;
  for (const Token& token : tokens) {
    if (token.kind != TokenKind::Parameter) continue;
    pieces.emplace_back(text.substr(at, token.begin - at));
    at = token.end();
  }
  pieces.emplace_back(text.substr(at));
  return pieces;
}

const std::string& StatementTemplates::withLiterals(const std::string& sql,
                                                    std::span<const Stored> values,
                                                    const Dialect& dialect) {
  refuseZeroCharacters(sql, values);
  const Pieces* known = kept_.find(sql);
  if (known == nullptr) known = &kept_.keep(sql, piecesOf(sql, dialect));
  requireParameters(sql, known->size() - 1, values.size());
  text_ = known->front();
  for (std::size_t i = 0; i < values.size(); ++i) {
    appendLiteral(text_, values[i]);
    text_ += (*known)[i + 1];
  }
  return text_;
}

}  // namespace kt7::data
