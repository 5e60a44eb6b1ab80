#pragma once

#include <span>
#include <string>
#include <string_view>

#include "roles/data/snapshot.h"

namespace kt7::data {

/// A statement error where a fixed text takes another number of values than it was given.
void requireParameters(const std::string& sql, std::size_t wanted, std::size_t given);

/// A statement error for a text with a zero character: client libraries end a text there.
void refuseZeroCharacters(const std::string& sql, std::span<const Stored> values);

/// What the servers have in common: exact decimals, dates as ISO texts, yes/no as 1 and 0. A
/// database error for a number that is infinite or undefined.
Stored storedOnServer(const Value& value, ColumnKind kind);

/// The same for an engine that keeps fractions as doubles: an amount that would not come back equal
/// is refused.
Stored storedAsDouble(const Value& value, ColumnKind kind);

/// As the servers read it in a statement, without quotes; null is not asked for.
std::string serverText(const Stored& value);
/// A literal of an SQL text in which a backslash is an ordinary character.
void appendLiteral(std::string& sql, const Stored& value);

/// A decimal text of an engine with exact decimals: a whole number where the column has no
/// decimals, money up to four, else a double. Where `decimals` is below zero the text tells.
void setDecimal(Cell& cell, std::string_view text, int decimals);
ColumnKind decimalKind(int decimals);
[[noreturn]] void raiseNoNumber(std::string_view text);
void setInteger(Cell& cell, std::string_view text);
void setReal(Cell& cell, std::string_view text);
/// A whole number or a double; false for a text that is neither.
bool setNumber(Cell& cell, std::string_view text);

}  // namespace kt7::data
