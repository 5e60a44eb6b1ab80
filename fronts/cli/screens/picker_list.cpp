#include "picker_list.h"

#include <algorithm>

#include "base/number_text.h"
#include "base/text.h"
#include "fronts/common/display_text.h"
#include "host/data/contract/database.h"
#include "roles/texts/date_text.h"

namespace kt7::screens {

namespace {

constexpr int kKindNamed = 13;
constexpr int kUsualWeight = 1000;

struct SourceColumn {
  std::string name;
  PickerColumn shown;
  std::vector<std::string> valueNames;
};

/// The number at that place of a list; the fallback where there is none.
int numberAt(const std::vector<std::string>& list, std::size_t place, int fallback) {
  if (place >= list.size()) return fallback;
  const std::string_view text = trimmedBlanks(list[place]);
  int number = 0;
  return readPlainNumber(text, number) && number >= 0 ? number : fallback;
}

std::vector<SourceColumn> columnsOf(const PickerRequest& request) {
  const std::vector<std::string> names = split(request.columns, ',');
  const std::vector<std::string> headers = split(request.headers, ',');
  const std::vector<std::string> widths = split(request.widths, ',');
  const std::vector<std::string> kinds = split(request.kinds, ',');
  std::vector<SourceColumn> columns;
  for (std::size_t place = 0; place < names.size(); ++place) {
    SourceColumn column{std::string(trimmedBlanks(names[place])), {}, {}};
    column.shown.header = oneLine(place < headers.size() ? headers[place] : column.name);
    column.shown.weight = numberAt(widths, place, kUsualWeight);
    if (numberAt(kinds, place, 0) == kKindNamed) {
      column.valueNames = split(column.shown.header, ';');
      column.shown.header = column.valueNames.front();
      column.valueNames.erase(column.valueNames.begin());
    }
    columns.push_back(std::move(column));
  }
  return columns;
}

std::string shownValue(const Value& value, const SourceColumn& column) {
  const std::string text = oneLine(value.joinedText());
  const std::size_t place =
      static_cast<std::size_t>(numberAt({text}, 0, static_cast<int>(column.valueNames.size())));
  return place < column.valueNames.size() ? column.valueNames[place] : text;
}

}  // namespace

std::string pickerStatement(const PickerRequest& request) {
  bool keyShown = false;
  for (const std::string& column : split(request.columns, ',')) {
    keyShown = keyShown || equalNoCase(trimmedBlanks(column), request.key);
  }
  return roles::resolveDateMarkers("SELECT " + request.columns +
                                   (keyShown ? "" : "," + request.key) + " FROM " + request.source);
}

PickerList readPickerList(const PickerRequest& request, const std::string& connectionString,
                          bool multiSelect) {
  const std::vector<SourceColumn> columns = columnsOf(request);
  PickerList list{oneLine(request.title), {}, {}, multiSelect};
  for (const SourceColumn& column : columns) list.columns.push_back(column.shown);

  const auto rows = data::createRecordset();
  rows->Open(pickerStatement(request), connectionString, ado::kStatic, ado::kReadOnly);
  for (; !rows->Eof(); rows->MoveNext()) {
    PickerRow row{rows->get(request.key).joinedText(), {}};
    for (const SourceColumn& column : columns) {
      row.cells.push_back(shownValue(rows->get(column.name), column));
    }
    list.rows.push_back(std::move(row));
  }
  rows->Close();
  return list;
}

}  // namespace kt7::screens
