#pragma once

#include <string>

#include <kt7/export.h>
#include <kt7/roles/data_source.h>
#include <kt7/roles/standard_data_obj.h>
#include <kt7/roles/standard_platform.h>

namespace kt7::roles {

/// The platform of a host over its own data sources. Pickers, messages, the clock and the keyed
/// hash of permission tokens are set as in StandardPlatform; without them a picker or a token is an
/// error, a message one line on standard error, and the time the machine's.
class KT7_API SourcePlatform : public StandardPlatform {
 public:
  explicit SourcePlatform(OpenSource open);
};

/// The data object of a host over its own data sources: the company's database by its connection
/// string. The platform may end before it.
class KT7_API SourceDataObj : public StandardDataObj {
 public:
  /// Closed at first. A connection error for an engine MySql whose connection string does not
  /// contain "MYSQL" in some letter case: the library tells by it which words a database takes.
  SourceDataObj(const SourcePlatform& platform, const std::string& connectionString, Engine engine);
};

}  // namespace kt7::roles
