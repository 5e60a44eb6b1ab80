#pragma once

#include <memory>
#include <string>

#include <kt7/contract/data_access.h>

namespace kt7::cli {

/// An open connection to a company of this release's version; a database error that says what to do
/// where the database holds anything else.
std::unique_ptr<ado::Connection> openCompany(const std::string& connectionString);

}  // namespace kt7::cli
