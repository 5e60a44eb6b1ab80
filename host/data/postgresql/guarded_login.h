#pragma once

#include "host/data/postgresql/session.h"

namespace kt7::data {

enum class LoginEnd {
  Told,          // as PQstatus tells
  TimedOut,      // an address did not answer within five seconds
  AskedForText,  // the server wanted the password as text; it was not sent
  Garbled,       // what answered does not speak the protocol
};

/// Brings a login that PQconnectStart or PQresetStart began to its end. The library would answer a
/// request for the password as text, and has no switch against it before version 16: here it never
/// sees one.
LoginEnd endGuarded(PGconn* connection);

}  // namespace kt7::data
