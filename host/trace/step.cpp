#include "host/trace/step.h"

#include <array>

namespace kt7::trace {

namespace {

constexpr std::array<std::string_view, 13> kKindNames{
    "open",   "close",  "begin", "commit",  "rollback", "execute", "recordset",
    "update", "lookup", "query", "setting", "picker",   "message"};
static_assert(kKindNames.size() == static_cast<std::size_t>(StepKind::Message) + 1);

std::string settingText(const Step& step) {
  if (step.user == 0) return std::string(step.key);
  std::string text(step.operation);
  text += " of user " + std::to_string(step.user);
  if (!step.key.empty()) text.append(" for ").append(step.key);
  return text;
}

std::string lookupText(const Step& step) {
  std::string text(step.resultColumn);
  text.append(" of ").append(step.table).append(" where ").append(step.keyColumn);
  return text.append("=").append(step.keyValue);
}

std::string detailsOf(const Step& step) {
  switch (step.kind) {
    case StepKind::Lookup:
      return lookupText(step);
    case StepKind::Setting:
      return settingText(step);
    case StepKind::Picker:
      return step.picker->title + " from " + step.picker->source;
    case StepKind::Message:
      return std::string(step.text);
    case StepKind::Update:
      return (step.addsRow ? "new row of " : "row of ") + std::string(step.sql);
    default:
      return std::string(step.sql);
  }
}

}  // namespace

std::string_view kindName(StepKind kind) { return kKindNames[static_cast<std::size_t>(kind)]; }

std::string lineOf(const Step& step) {
  std::string line(kindName(step.kind));
  if (!step.on.empty()) line.append(" (").append(step.on).append(")");
  const std::string details = detailsOf(step);
  if (!details.empty()) line.append(": ").append(details);
  return line;
}

}  // namespace kt7::trace
