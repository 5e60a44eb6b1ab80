#pragma once

#include <string>

#include "bindings.h"

namespace kt7::client {

/// Makes every call of the list in one binding and compares with what the native library answered
/// on the same database, a line a call in both files. Answers the number of checks.
int testAnswers(Binding binding, const std::string& callsFile, const std::string& answersFile,
                const std::string& connectionString);

}  // namespace kt7::client
