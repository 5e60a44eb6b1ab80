#include "operations_page.h"

#include <algorithm>
#include <stdexcept>

#include <kt7/error.h>
#include <kt7/operation_notes.h>
#include <kt7/operations.h>
#include "base/text.h"
#include "operation_shape.h"
#include "reference_text.h"

namespace kt7::cli {

namespace {

constexpr const char* kHead = R"(# Operations

Made by `kt7hr operations` from the tables of the interface and the texts in `fronts/cli/reference`;
do not edit.

)";

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

const OperationNote& noteOf(std::string_view name) {
  const auto* note = std::find_if(kOperationNotes.begin(), kOperationNotes.end(),
                                  [&](const OperationNote& each) { return each.name == name; });
  if (note == kOperationNotes.end()) throw std::logic_error("no note on " + std::string(name));
  return *note;
}

template <typename Rows>
const auto& rowOf(const Rows& rows, std::string_view name) {
  const auto at =
      std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.name == name; });
  if (at == rows.end()) throw std::logic_error("no row of " + std::string(name));
  return *at;
}

std::string code(std::string_view text) { return "`" + std::string(text) + "`"; }

/// "TEmpCode, TEmpSalary" with each name as code; what carries marks of its own stays as it is.
std::string columnList(const std::string& columns) {
  if (columns.find('`') != std::string::npos) return columns;
  return "`" + replaceAll(replaceAll(columns, " to ", "` to `"), ", ", "`, `") + "`";
}

std::string typeText(const ParameterShape& parameter) {
  std::string text(parameter.type);
  if (parameter.inOut) text += ", in/out";
  if (parameter.optional) text += ", optional";
  return text;
}

bool names(std::string_view list, std::string_view name) {
  const std::vector<std::string> all = split(list, ',');
  return std::any_of(all.begin(), all.end(),
                     [&](const std::string& each) { return trimmedBlanks(each) == name; });
}

/// What a text does in a statement that the operation composes.
std::string composedText(const OperationNote* note, std::string_view parameter) {
  if (note == nullptr) return "";
  if (names(note->composed.asTheyStand, parameter)) return " **SQL**: composed as it stands.";
  if (names(note->composed.betweenQuotes, parameter)) return " **Composed** between quotes.";
  return "";
}

void addParameters(std::string& page, const OperationShape& shape, const ReferenceEntry& entry,
                   const OperationNote* note) {
  std::string rows;
  for (const ParameterShape& parameter : shape.parameters) {
    if (parameter.isObject()) continue;
    const ParameterText* text = reference().findParameter(entry, parameter.name);
    if (text == nullptr) {
      throw std::logic_error("no text on " + entry.name + ", " + std::string(parameter.name));
    }
    rows += "| " + code(parameter.name) + " | " + typeText(parameter) + " | " + text->meaning +
            composedText(note, parameter.name) + " | " + text->whenEmpty + " |\n";
  }
  if (rows.empty()) return;
  page += "| parameter | type | meaning | 0, \"\", false, blank date |\n|---|---|---|---|\n" +
          rows + "\n";
}

void addTables(std::string& page, std::string_view does, const std::vector<NamedText>& tables) {
  for (const NamedText& table : tables) {
    const bool named = table.name.starts_with("KT7");
    page.append("- **").append(does).append("** ");
    page += (named ? code(table.name) : table.name) + ": " + columnList(table.text) + "\n";
  }
}

void addEffects(std::string& page, const ReferenceEntry& entry) {
  const ReferenceEntry& effects = reference().effectsOf(entry);
  addTables(page, "Reads", effects.reads);
  addTables(page, "Writes", effects.writes);
  for (const NamedText& error : effects.errors) {
    page += "- **Error** " + error.name + ": " + error.text + "\n";
  }
}

/// The link to a heading, as the usual renderers name it.
std::string linkTo(const std::string& heading) {
  return "[" + heading + "](#" + replaceAll(lowerCase(heading), " ", "-") + ")";
}

void addSurprises(std::string& page, const ReferenceEntry& entry, const OperationNote* note) {
  const ReferenceEntry* other = reference().findOperation(entry.like);
  const bool more = other != nullptr && (!other->surprises.empty() || !other->like.empty());
  const std::string remark(note == nullptr ? "" : note->remark);
  if (entry.surprises.empty() && !more && remark.empty()) return;
  page += "\nSurprises:\n\n";
  for (const std::string& surprise : entry.surprises) page += "- " + surprise + "\n";
  if (!remark.empty()) page += "- " + remark + "\n";
  if (more) page += "- What is said of " + linkTo(other->name) + " holds here too.\n";
}

void addExample(std::string& page, const ReferenceEntry& entry) {
  page += "\n```\n";
  for (const std::string& line : entry.example) {
    page += (line.starts_with("kt7hr ") ? "$ " : "") + line + "\n";
  }
  page += "```\n\n";
}

/// Without a note for a method of the profile.
void addSection(std::string& page, const OperationShape& shape, const ReferenceEntry& entry,
                const OperationNote* note) {
  page += "### " + entry.name + "\n\n" + entry.text + "\n\n";
  page += "```cpp\n" + declarationOf(shape) + "\n```\n\n";
  addParameters(page, shape, entry, note);
  page += "- **Answers** " + std::string(shape.result);
  if (note != nullptr && note->answers != shape.result) page.append(": ").append(note->answers);
  page += "\n";
  addEffects(page, entry);
  if (note != nullptr)
    page.append("- **Connection**: ").append(whereText(note->where)).append("\n");
  addSurprises(page, entry, note);
  addExample(page, entry);
}

void addOperation(std::string& page, const ReferenceEntry& entry) {
  addSection(page, rowOf(operationShapes(), entry.name), entry, &noteOf(entry.name));
}

void addMethod(std::string& page, const ReferenceEntry& entry) {
  addSection(page, rowOf(profileMethodShapes(), entry.name), entry, nullptr);
}

void addProperties(std::string& page, const ReferenceArea& area) {
  if (area.properties.empty()) return;
  page += "### Properties\n\n| property | type | new object | meaning |\n|---|---|---|---|\n";
  const std::vector<PropertyShape> shapes = profilePropertyShapes();
  for (const ReferenceEntry& entry : area.properties) {
    const PropertyShape& shape = rowOf(shapes, entry.name);
    page += "| " + code(entry.name) + " | " + std::string(shape.type) +
            (shape.readOnly ? ", read only" : "") + " | " + shape.newValue + " | " + entry.text +
            " |\n";
  }
  page += "\n";
}

void addContents(std::string& page) {
  page += "## Contents\n\n";
  for (const ReferenceArea& area : reference().areas()) {
    page += "**" + linkTo(area.title) + "**\n\n| | answers |\n|---|---|\n";
    for (const ReferenceEntry& entry : area.operations) {
      page += "| " + linkTo(entry.name) + " | " + std::string(noteOf(entry.name).answers) + " |\n";
    }
    if (!area.properties.empty()) page += "| " + linkTo("Properties") + " | |\n";
    for (const ReferenceEntry& entry : area.methods) {
      page += "| " + linkTo(entry.name) + " | " +
              std::string(rowOf(profileMethodShapes(), entry.name).result) + " |\n";
    }
    page += "\n";
  }
}

void addErrorKinds(std::string& page) {
  page += "\n| kind | number |\n|---|---|\n";
  for (const ErrorKindRow& kind : errorKinds()) {
    page += "| " + std::string(kind.name) + " | " + std::to_string(kind.number);
    if (kind.kind == ErrorKind::Database) {
      page += "; " + std::to_string(error_number::kConnectionFailed) + " without a connection";
    }
    page += " |\n";
  }
}

void addExampleHint(std::string& page) {
  page += R"(
**Examples** run as they stand, each on a new sample company:

```
$ export KT7HR_DB='Driver=SQLite;Database=company.db'
$ kt7hr init --sample
```

`--now` sets the clock, `--user` says who works, `--pick` answers a picker.

)";
}

void addUndescribed(std::string& page) {
  page += "## Not described\n\nPublished, and answering \"not implemented\":";
  for (const UndescribedOperation& operation : kUndescribedOperations) {
    page += (&operation == kUndescribedOperations.data() ? " " : ", ") + code(operation.name);
  }
  page += ".\n";
}

}  // namespace

std::string operationsPage() {
  std::string page = kHead + reference().introduction();
  addErrorKinds(page);
  addExampleHint(page);
  addContents(page);
  for (const ReferenceArea& area : reference().areas()) {
    page += "## " + area.title + "\n\n" + area.text + "\n\n";
    for (const ReferenceEntry& entry : area.operations) addOperation(page, entry);
    addProperties(page, area);
    for (const ReferenceEntry& entry : area.methods) addMethod(page, entry);
  }
  addUndescribed(page);
  return page;
}

std::optional<std::string> operationSection(std::string_view name) {
  std::string section;
  for (const ReferenceArea& area : reference().areas()) {
    for (const ReferenceEntry& entry : area.operations) {
      if (entry.name == name) addOperation(section, entry);
    }
    for (const ReferenceEntry& entry : area.methods) {
      if (entry.name == name) addMethod(section, entry);
    }
  }
  if (section.empty()) return std::nullopt;
  return section;
}

std::vector<std::string_view> sectionNames() {
  std::vector<std::string_view> names;
  for (const OperationShape& shape : operationShapes()) names.push_back(shape.name);
  for (const OperationShape& shape : profileMethodShapes()) names.push_back(shape.name);
  return names;
}

}  // namespace kt7::cli
