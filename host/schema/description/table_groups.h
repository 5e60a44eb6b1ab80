#pragma once

#include <string>
#include <vector>

#include "host/schema/description/table.h"

/// How the description is written down, and its groups of tables.
namespace kt7::schema {

inline constexpr int kCodeLength = 60;
inline constexpr int kNameLength = 255;
inline constexpr int kNoteLength = 1000;

Column code(std::string name);
Column text(std::string name, int length = kNameLength);
Column money(std::string name);
Column number(std::string name);
Column date(std::string name);
Column moment(std::string name);
Column small(std::string name);
Column whole(std::string name);

Index unique(std::string columns);
Index index(std::string columns);

/// Columns whose names end in a number: TEMTPaymentPeriod1, TEMTPaymentPeriod2, ...
void appendNumbered(std::vector<Column>& columns, const Column& stem, int first, int last);

/// A table with its row id, named by the column prefix.
Table table(std::string name, const std::string& prefix, std::vector<Column> columns,
            std::vector<Index> indexes);
/// The same with the marks of a master or history row: Flag1 (1 = in use) and Flag3 (last change).
Table marked(std::string name, const std::string& prefix, std::vector<Column> columns,
             std::vector<Index> indexes);

std::vector<Table> employeeTables();
std::vector<Table> personalRecordTables();
std::vector<Table> documentTables();
std::vector<Table> organisationTables();
std::vector<Table> employeeTypeTables();
std::vector<Table> rateTables();
std::vector<Table> slipTables();
std::vector<Table> calendarTables();
std::vector<Table> hostTables();
std::vector<Table> versionTables();

}  // namespace kt7::schema
