#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The company database: its tables and views as data, rendered for each engine.
namespace kt7::schema {

enum class ColumnType {
  RowId,   // the surrogate primary key, given by the database
  Text,    // codes, names and other texts; compared byte for byte
  Money,   // four decimals
  Number,  // a double: rates, hours, days
  Date,    // a day
  Moment,  // a day with its time
  Small,   // a 16-bit whole number: flags, statuses, kinds
  Whole    // a 32-bit whole number
};

struct Column {
  std::string name;
  ColumnType type = ColumnType::Text;
  int length = 0;       // of a text, in characters
  bool isCode = false;  // a text that statements carry as it stands
};

/// Columns as they stand in the CREATE INDEX: "TEmpTSecCode, TEmpCode". The columns of a unique
/// index may be null, and rows with a null in them may repeat.
struct Index {
  std::string columns;
  bool unique = false;
};

struct Table {
  std::string name;
  std::vector<Column> columns;  // the row id first
  std::vector<Index> indexes;
};

/// A view over real tables. Its columns are plain column references ("TEmpCode",
/// "TEGMTEmpCode AS TEmpCode"), so that every engine still tells their types.
struct View {
  std::string name;
  std::vector<std::string> columns;
  std::string from;
};

std::span<const Table> tables();
std::span<const View> views();

/// False for the tables that this system keeps for itself: its version and the parts of a run.
bool isCompanyData(const Table& table);

/// Found without regard to letter case; null where there is none.
const Table* findTable(std::string_view name);
const View* findView(std::string_view name);
const Column* findColumn(const Table& table, std::string_view name);

}  // namespace kt7::schema
