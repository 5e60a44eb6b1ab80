#pragma once

#include <string>

#include <kt7/contract/data_access.h>
#include "fronts/com/automation/late_object.h"

namespace kt7::adapters {

using automation::LateObject;
using automation::Variant;

/// A connection of the platform's data-access objects, or of anything in their shape.
class LateConnection : public ado::Connection {
 public:
  explicit LateConnection(LateObject object) : object_(std::move(object)) {}

  void CursorLocation(int location) override { object_.put(L"CursorLocation", location); }
  void Open(const std::string& connectionString, const std::string& user,
            const std::string& password, int options) override {
    object_.run(L"Open", connectionString, user, password, options);
  }
  void Close() override { object_.run(L"Close"); }
  void Execute(const std::string& sql) override { object_.run(L"Execute", sql); }
  void BeginTrans() override { object_.run(L"BeginTrans"); }
  void CommitTrans() override { object_.run(L"CommitTrans"); }
  void RollbackTrans() override { object_.run(L"RollbackTrans"); }

  const LateObject& object() const { return object_; }

 private:
  LateObject object_;
};

/// The connection object or the connection string, as an argument of the host's objects.
Variant argumentOf(const ado::ActiveConnection& on);

}  // namespace kt7::adapters
