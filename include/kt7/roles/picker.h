#pragma once

#include <functional>
#include <string>
#include <vector>

#include <kt7/contract/data_tool.h>
#include <kt7/export.h>

namespace kt7::roles {

/// Answers a record picker: the chosen key values joined by ",", "" when nothing is chosen.
using Picker = std::function<std::string(const PickerRequest& request,
                                         const std::string& connectionString, bool multiSelect)>;

/// Always answers those key values.
KT7_API Picker pickAlways(const std::vector<std::string>& keys);

/// Where nobody can pick: a failed collaborator call that says how to answer.
KT7_API Picker pickNever();

}  // namespace kt7::roles
