#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <kt7/engine.h>
#include "host/schema/description/table.h"

/// Renderings of the description in the words of an engine; one that has none of its own gets
/// standard SQL.
namespace kt7::schema {

/// True where a statement that makes or drops something commits by itself; the driver refuses it
/// inside a transaction.
bool keepsEveryStep(Engine engine);

/// The declared type of a column: what CREATE TABLE says after its name.
std::string columnTypeText(const Column& column, Engine engine);
std::string createTableText(const Table& table, Engine engine);
std::vector<std::string> createIndexTexts(const Table& table, Engine engine);
/// The name of a table's index of that number, counted from 1.
std::string indexName(const Table& table, std::size_t number, Engine engine);
std::string createViewText(const View& view, Engine engine);

/// The functions that the library's statements use and the engine lacks.
std::vector<std::string> createFunctionTexts(Engine engine);

/// Every statement that makes the schema, in an order that works: functions, tables, indexes,
/// views.
std::vector<std::string> createSchemaTexts(Engine engine);

/// The name under which the engine keeps a table or view: MySQL tells letter cases apart on some
/// systems, so there it is lower case.
std::string storedName(std::string_view name, Engine engine);

}  // namespace kt7::schema
