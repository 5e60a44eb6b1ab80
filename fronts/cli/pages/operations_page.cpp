#include "operations_page.h"

#include <kt7/operation_notes.h>
#include <kt7/operations.h>
#include "base/text.h"

namespace kt7::cli {

namespace {

constexpr const char* kHead = R"(# Operations

Made by `kt7hr operations`; do not edit. Parameters in brackets may be left out; `&` marks one that
the operation may change. Money has four decimals, dates are of the common era.

| operation | answers | reads | writes | connection and transaction |
|---|---|---|---|---|
)";

constexpr const char* kComposed = R"(
## Texts that become part of a statement

Some operations put a text into the statement that they compose, or into the condition that a filter
answers for the host's own statement:

- **as it stands**: the text is SQL itself, such as the `FieldTypeName` and `AdditionFilter` that the
  pickers and filters compose as given (`HRFilterAccessLevel` and its kin write `FieldTypeName` in upper
  case). Only the host's own program may choose it, never a user.
- **between quotes**: a quote inside the text is not doubled and ends the literal; what follows is SQL.
  Hand over codes that the host has read from its tables or checked, never what a user has typed.

Codes that an operation reads from a table are composed between quotes too, so keep quotes out of codes
where they come in. `EmployeeObject.SetTypeCode` puts its `vData` between quotes. All other texts are
connection strings, values of rows, or keys that the host's own `DataTool` and `SettingStore` are asked
for.

| operation | as it stands | between quotes |
|---|---|---|
)";

constexpr const char* kRemarks = R"(
## What may surprise a host

)";

constexpr const char* kTail = R"(
Published and not described, answering "not implemented":)";

std::string_view whereText(Where where) {
  switch (where) {
    case Where::Nothing:
      return "none";
    case Where::Lookups:
      return "the collaborators' own, a question at a time";
    case Where::Own:
      return "its own, to read";
    case Where::OwnTransaction:
      return "its own, in one transaction of its own";
    case Where::Callers:
      return "the caller's, in the caller's transaction";
    case Where::Opens:
      return "the data object's, opened and closed";
    case Where::OpensTransaction:
      return "the data object's, opened and closed, in one transaction";
    case Where::Picker:
      return "the picker's";
  }
  return {};
}

template <typename T>
constexpr std::string_view typeName() {
  using Plain = std::remove_cvref_t<T>;
  if constexpr (std::is_void_v<T>)
    return "nothing";
  else if constexpr (std::is_same_v<Plain, std::string>)
    return "text";
  else if constexpr (std::is_same_v<Plain, bool>)
    return "boolean";
  else if constexpr (std::is_same_v<Plain, double>)
    return "double";
  else if constexpr (std::is_same_v<Plain, float>)
    return "single";
  else if constexpr (std::is_same_v<Plain, Currency>)
    return "currency";
  else if constexpr (std::is_same_v<Plain, Date>)
    return "date";
  else if constexpr (sizeof(Plain) == 2)
    return "int16";
  else if constexpr (std::is_enum_v<Plain> || std::is_integral_v<Plain>)
    return "int32";
  else
    return "object";
}

template <typename Argument>
std::string parameterText(const Parameter& parameter) {
  std::string text(parameter.name);
  if (typeName<Argument>() != "object") {
    constexpr bool kOut =
        std::is_lvalue_reference_v<Argument> && !std::is_const_v<std::remove_reference_t<Argument>>;
    text.append(kOut ? " &" : " ").append(typeName<Argument>());
  }
  return parameter.optional ? "[" + text + "]" : text;
}

template <auto Member, typename... Arguments>
std::string signatureOf(const Operation<Member>& operation, std::tuple<Arguments...>*) {
  std::string list;
  std::size_t at = 0;
  ((list.append(at == 0 ? "" : ", ").append(parameterText<Arguments>(operation.parameters[at])),
    ++at),
   ...);
  return "`" + std::string(operation.name) + "(" + list + ")` " +
         std::string(typeName<typename Operation<Member>::Result>());
}

std::string orDash(std::string_view text) { return text.empty() ? "–" : std::string(text); }

template <auto Member>
void addLine(std::string& page, const Operation<Member>& operation, const OperationNote& note) {
  using Arguments = typename Operation<Member>::Arguments;
  page.append("| ").append(signatureOf(operation, static_cast<Arguments*>(nullptr)));
  page.append(" | ").append(note.answers);
  page.append(" | ").append(orDash(note.reads));
  page.append(" | ").append(orDash(note.writes));
  page.append(" | ").append(whereText(note.where)).append(" |\n");
}

std::string asCode(std::string_view names) {
  if (names.empty()) return "–";
  return "`" + replaceAll(std::string(names), ", ", "`, `") + "`";
}

void addComposed(std::string& page, const OperationNote& note) {
  const ComposedTexts& texts = note.composed;
  if (texts.asTheyStand.empty() && texts.betweenQuotes.empty()) return;
  page.append("| ").append(asCode(note.name));
  page.append(" | ").append(asCode(texts.asTheyStand));
  page.append(" | ").append(asCode(texts.betweenQuotes)).append(" |\n");
}

}  // namespace

std::string operationsPage() {
  static_assert(kOperationNotes.size() == std::tuple_size_v<decltype(kOperations)>);
  std::string page = kHead;
  std::size_t at = 0;
  std::apply([&](const auto&... rows) { (addLine(page, rows, kOperationNotes[at++]), ...); },
             kOperations);
  page += kComposed;
  for (const OperationNote& note : kOperationNotes) addComposed(page, note);
  page += kRemarks;
  for (const OperationNote& note : kOperationNotes) {
    if (note.remark.empty()) continue;
    page.append("- ").append(asCode(note.name)).append(": ").append(note.remark).append("\n");
  }
  page += kTail;
  for (const UndescribedOperation& operation : kUndescribedOperations) {
    page.append(&operation == kUndescribedOperations.data() ? " `" : ", `");
    page.append(operation.name).append("`");
  }
  return page + ".\n";
}

}  // namespace kt7::cli
