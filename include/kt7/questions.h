#pragma once

#include <string>

#include <kt7/contract/data_obj.h>
#include <kt7/currency.h>
#include <kt7/date.h>
#include <kt7/enumerations.h>
#include <kt7/export.h>

namespace kt7 {

class _HRObject;  // NOLINT(bugprone-reserved-identifier): the published name

// The operations with many parameters, asked by named fields. Each is one call of the published
// operation, with the same answer and the same errors.

/// What CalcPTAX4 withholds from a month's pay. Amounts are baht.
struct MonthTax {
  Currency pay;                  // of this month, the bonus included
  Currency bonus = {};           // the one-off part of it
  Date payDate = {};             // tells the months left in the year
  Currency incomeToDate = {};    // of the tax year, this month included
  Currency taxToDate = {};       // withheld in the tax year before this month
  Currency socialSecurity = {};  // the employee's, paid in the tax year
  Currency allowances = {};      // personal ones of the year, the taxpayer's own included
  Currency studySupport = {};    // counts twice
  Currency exemption = {};       // taken off the year's income
  bool trimToTen = false;        // takes the last whole digit off the tax
  std::int16_t monthsLeft = 12;  // after this one; 12 for those after the pay date's month
};
/// The tax to withhold, two places; negative where too much was withheld. 0 for pay of 0 or less.
KT7_API float ask(const MonthTax& question, _HRObject& hr, DataObj& dataObj);

/// Whom SelectEmployee4 offers.
struct EmployeeChoice {
  bool many = false;           // any number of employees, not one
  bool activeOnly = false;     // those at work
  bool permittedOnly = false;  // those whom the user may see
  bool withSlipsOnly = false;  // those who get slips
  KT7EmployeeSortType layout = KT7EmployeeSortTypeCode;
  bool fromSaleHolder = false;
  std::string typeColumn = {};  // becomes part of the statement as it stands
  bool administratorLevel = false;
  std::string ofType = {};   // an employee type's code
  std::string andAlso = {};  // a condition that becomes part of the statement as it stands
};
/// The codes that the user chose, joined as the picker joins them; "" for none.
KT7_API std::string ask(const EmployeeChoice& question, _HRObject& hr, DataObj& dataObj,
                        AppObj& appObj, ClientObj& clientObj);

/// A step of an employee's position history for UpdatePostionTR.
struct PositionStep {
  std::string employee;
  Date from;
  std::string positionCode = {};
  std::string position = {};
  std::string branch = {};
  std::string division = {};
  std::string department = {};
  std::string section = {};
  double salary = 0;
  double custom = 0;
};
/// What UpdatePostionTR answers. Writes on the data object's connection, in its transaction.
KT7_API std::int16_t write(const PositionStep& step, _HRObject& hr, DataObj& dataObj);

}  // namespace kt7
