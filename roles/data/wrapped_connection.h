#pragma once

#include <kt7/contract/data_access.h>

namespace kt7::data {

/// A connection that forwards to another (a trace, a fault injector). Recordsets and lookups look
/// through it.
class WrappedConnection : public ado::Connection {
 public:
  virtual ado::Connection& inner() = 0;
};

}  // namespace kt7::data
