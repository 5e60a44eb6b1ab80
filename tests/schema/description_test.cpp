#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "host/schema/description/table.h"
#include "schema/amass_columns.h"
#include "schema/employee_code_columns.h"

namespace kt7::schema {
namespace {

std::string storedColumn(const std::string& viewColumn) {
  return viewColumn.substr(0, viewColumn.find(' '));
}

std::string shownColumn(const std::string& viewColumn) {
  const std::size_t blank = viewColumn.rfind(' ');
  return blank == std::string::npos ? viewColumn : viewColumn.substr(blank + 1);
}

TEST(Description, HoldsWhatTheLibraryWrites) {
  for (const EmployeeCodeColumn& owner : kEmployeeCodeColumns) {
    const Table* table = findTable(owner.table);
    ASSERT_NE(table, nullptr) << owner.table;
    EXPECT_NE(findColumn(*table, owner.column), nullptr) << owner.table << " " << owner.column;
  }
  const Table& balance = *findTable("kt7tempamasstype");
  for (const std::string_view column : kAmassMoneyColumns) {
    const Column* found = findColumn(balance, column);
    ASSERT_NE(found, nullptr) << column;
    EXPECT_EQ(found->type, ColumnType::Money) << column;
  }
  for (int i = 10; i <= 15; ++i) {
    for (const char* stem : {"TEATSubAddWelfare", "TEATSubCutWelfare"}) {
      EXPECT_NE(findColumn(balance, stem + std::to_string(i)), nullptr) << stem << i;
    }
  }
}

TEST(Description, NamesAreUniqueAndIndexesNameColumns) {
  std::set<std::string> names;
  std::set<std::string> columns;
  for (const Table& table : tables()) {
    EXPECT_TRUE(names.insert(lowerCase(table.name)).second) << table.name;
    EXPECT_EQ(table.columns.front().type, ColumnType::RowId) << table.name;
    for (const Column& column : table.columns) {
      EXPECT_TRUE(columns.insert(lowerCase(column.name)).second) << column.name;
    }
    for (const Index& index : table.indexes) {
      for (const std::string& column : split(index.columns, ',')) {
        EXPECT_NE(findColumn(table, trimmedBlanks(column)), nullptr) << table.name << column;
      }
    }
  }
  for (const View& view : views()) {
    EXPECT_TRUE(names.insert(lowerCase(view.name)).second) << view.name;
    std::set<std::string> shown;
    for (const std::string& column : view.columns) {
      EXPECT_TRUE(columns.contains(lowerCase(storedColumn(column)))) << view.name << column;
      EXPECT_TRUE(shown.insert(lowerCase(shownColumn(column))).second) << view.name << column;
    }
  }
}

}  // namespace
}  // namespace kt7::schema
