#pragma once

#include <span>
#include <string_view>

#include "roles/sql/sql_lexer.h"

namespace kt7::data {

/// True where a statement surely answers no rows, so that it need not be run to find out. `lexes`:
/// whether the tokens reach to its end.
bool surelyWithoutRows(std::string_view sql, std::span<const Token> tokens, bool lexes);

/// True where a second statement begins by its word alone, as SQL Server lets it.
bool holdsSecondStatement(std::string_view sql, std::span<const Token> tokens);

/// True where MySQL and its kin commit an open transaction before they run the statement.
bool commitsInMysql(std::string_view sql, std::span<const Token> tokens);

}  // namespace kt7::data
