#pragma once

#include <memory>
#include <string_view>

#include "host/data/session/connection_string.h"
#include "roles/data/session.h"

namespace kt7::data {

/// A connection to PostgreSQL or what speaks its protocol; several servers in "Server=a,b" are
/// tried in turn. A connection error that says why none could be reached.
std::unique_ptr<Session> openPostgresql(const ConnectionString& where, std::string_view user,
                                        std::string_view password);
/// Makes the database where it is missing; a connection error that names the right it needs.
void createPostgresql(const ConnectionString& where);

}  // namespace kt7::data
