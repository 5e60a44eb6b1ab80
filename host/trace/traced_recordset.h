#pragma once

#include <memory>
#include <string>

#include "host/trace/step.h"

namespace kt7::trace {

/// A recordset whose opening and updates are observed.
class TracedRecordset : public ado::Recordset {
 public:
  TracedRecordset(std::unique_ptr<ado::Recordset> inner, StepObserver& observer)
      : inner_(std::move(inner)), observer_(observer) {}

  void Open(const std::string& source, const ado::ActiveConnection& activeConnection,
            int cursorType, int lockType, int options) override;
  bool Eof() const override { return inner_->Eof(); }
  void MoveNext() override;
  ado::Fields& Fields() override { return inner_->Fields(); }
  void AddNew() override;
  void Update() override;
  void Close() override { inner_->Close(); }

 private:
  std::unique_ptr<ado::Recordset> inner_;
  StepObserver& observer_;
  std::string source_;
  std::string on_;
  bool addsRow_ = false;
};

}  // namespace kt7::trace
