#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <kt7/contract/data_obj.h>
#include <kt7/host/data_obj.h>
#include <kt7/hr_interface.h>

namespace kt7::cli {

/// A place where employee codes are stored.
struct CodePlace {
  std::string table;
  std::string column;
  bool byOperation = false;  // RenameEmployeeCodeTR rewrites it
};

/// Those that the operation rewrites, in its order, then every other column of the company's tables
/// that is named after the employee's code, such as the one of the balances.
std::vector<CodePlace> codePlaces();

struct CodeRows {
  CodePlace place;
  std::int64_t rows = 0;
};

/// How many rows of each place hold the code. The code holds no quotes.
std::vector<CodeRows> countCode(ado::Connection& connection, const std::string& code);

/// The old code has no employee, or the new one is taken.
class RenamingRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// RenamingRefused unless the old code has an employee and no place holds the new one.
void requireRenamable(ado::Connection& connection, const std::string& from, const std::string& to);

/// Renames everywhere in one transaction, the operation's places through the operation; the rule
/// above is looked at again inside it. A failure leaves nothing changed.
void renameEmployee(_HRObject& hr, host::HostDataObj& dataObj, const std::string& from,
                    const std::string& to);

}  // namespace kt7::cli
