#pragma once

#include <list>
#include <string>

#include <kt7/contract/data_access.h>
#include "fronts/com/automation/late_object.h"

namespace kt7::adapters {

using automation::LateObject;
using automation::MemberIds;

class LateField : public ado::Field {
 public:
  LateField(std::string name, LateObject object)
      : name_(std::move(name)), object_(std::move(object)) {}
  kt7::Value Value() const override;
  void Value(const kt7::Value& value) override;
  const std::string& name() const { return name_; }

 private:
  std::string name_;
  LateObject object_;
};

/// The fields of the current row, fetched by name when asked for.
class LateFields : public ado::Fields {
 public:
  void bind(LateObject object) {
    object_ = std::move(object);
    forgetRow();
  }
  void forgetRow() { fetched_.clear(); }
  ado::Field& Item(std::string_view name) override;

 private:
  LateObject object_;
  // Fields of one recordset are of one class.
  MemberIds fieldIds_;
  std::list<LateField> fetched_;
};

/// A recordset of the platform's data-access objects, or of anything in their shape.
class LateRecordset : public ado::Recordset {
 public:
  explicit LateRecordset(LateObject object) : object_(std::move(object)) {}

  void Open(const std::string& source, const ado::ActiveConnection& activeConnection,
            int cursorType, int lockType, int options) override;
  bool Eof() const override;
  void MoveNext() override;
  ado::Fields& Fields() override { return fields_; }
  void AddNew() override;
  void Update() override { object_.run(L"Update"); }
  void Close() override;

 private:
  LateObject object_;
  LateFields fields_;
};

}  // namespace kt7::adapters
