#pragma once

#include <span>
#include <string_view>

#include <kt7/hr_interface.h>
#include "json_values.h"

namespace kt7::cli {

/// What a session hands to an operation in place of JSON.
struct OperationObjects {
  _HRObject& hrObject;
  DataObj& dataObj;
  AppObj& appObj;
  ClientObj& clientObj;
};

/// A published operation that can be called with named JSON parameters. The answer is
/// {"value": result or null, "out": {every by-reference parameter that is no object}}.
/// Raises ProtocolError for parameters that do not fit, and whatever the operation raises.
struct OperationCall {
  std::string_view name;
  Json (*call)(const Json& params, const OperationObjects& objects);
};

/// Every operation, also those that answer "not implemented", in the order of the table.
std::span<const OperationCall> operationCalls();
/// Null for a name that is not published; letter case counts.
const OperationCall* findOperation(std::string_view name);

}  // namespace kt7::cli
