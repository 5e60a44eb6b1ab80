#include "host/trace/traced_recordset.h"

#include "host/trace/traced_connection.h"

namespace kt7::trace {

void TracedRecordset::Open(const std::string& source, const ado::ActiveConnection& activeConnection,
                           int cursorType, int lockType, int options) {
  source_ = source;
  on_ = onOf(activeConnection);
  addsRow_ = false;
  observed(observer_, stepOf(StepKind::Recordset, on_, source_),
           [&] { inner_->Open(source, activeConnection, cursorType, lockType, options); });
}

void TracedRecordset::MoveNext() {
  inner_->MoveNext();
  addsRow_ = false;
}

void TracedRecordset::AddNew() {
  inner_->AddNew();
  addsRow_ = true;
}

void TracedRecordset::Update() {
  Step step = stepOf(StepKind::Update, on_, source_);
  step.addsRow = addsRow_;
  observed(observer_, step, [&] {
    inner_->Update();
    addsRow_ = false;
  });
}

}  // namespace kt7::trace
