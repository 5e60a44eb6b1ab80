#include "trace_log.h"

#include <array>
#include <utility>

namespace kt7::cli {

namespace {

void addPicker(Json& shown, const PickerRequest& request) {
  shown["title"] = request.title;
  shown["key"] = request.key;
  shown["columns"] = request.columns;
  shown["headers"] = request.headers;
  shown["widths"] = request.widths;
  shown["kinds"] = request.kinds;
  shown["source"] = request.source;
  shown["options"] = request.options;
}

Json shownStep(const trace::Step& step) {
  const std::array<std::pair<const char*, std::string_view>, 9> texts{{
      {"on", step.on},
      {"operation", step.operation},
      {"sql", step.sql},
      {"keyColumn", step.keyColumn},
      {"keyValue", step.keyValue},
      {"resultColumn", step.resultColumn},
      {"table", step.table},
      {"key", step.key},
      {"text", step.text},
  }};
  Json shown{{"at", trace::kindName(step.kind)}};
  for (const auto& [name, text] : texts) {
    if (!text.empty()) shown[name] = text;
  }
  if (step.kind == trace::StepKind::Lookup) shown["keyValue"] = step.keyValue;
  if (step.user != 0) shown["user"] = step.user;
  if (step.kind == trace::StepKind::Update) shown["addsRow"] = step.addsRow;
  if (step.picker != nullptr) {
    shown["multi"] = step.multi;
    addPicker(shown, *step.picker);
  }
  return shown;
}

}  // namespace

void TraceLog::before(const trace::Step& step) { steps_.push_back(shownStep(step)); }

Json TraceLog::take() { return std::exchange(steps_, Json::array()); }

}  // namespace kt7::cli
