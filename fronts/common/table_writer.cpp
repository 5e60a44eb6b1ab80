#include "fronts/common/table_writer.h"

#include <algorithm>
#include <ostream>

#include "base/text.h"
#include "fronts/common/display_text.h"

namespace kt7::cli {

using screens::displayWidth;

namespace {

int leastOf(const TableColumn& column) { return column.least > 0 ? column.least : column.width; }

}  // namespace

/// A cell of one row, and the part of the line that belongs to its column.
struct TableWriter::Place {
  std::string text;
  TableColumn::Side side = TableColumn::Side::Left;
  int begin = 0;
  int end = 0;
  int least = 0;  // 0: the text is shown whole
};

TableWriter::TableWriter(std::ostream& out, TableLayout layout)
    : out_(out), layout_(std::move(layout)), shown_(layout_.columns.size(), true) {
  if (layout_.width == kAnyWidth) return;
  leaveOut();
  narrow();
}

int TableWriter::lineWidth() const {
  int width = layout_.indent - layout_.gap;
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    if (isShown(i)) width += layout_.gap + layout_.columns[i].width;
  }
  return width;
}

/// Goes without columns, in their order, until the others fit at their least.
void TableWriter::leaveOut() {
  int width = layout_.indent - layout_.gap;
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    width += layout_.gap + leastOf(layout_.columns[i]);
    if (layout_.columns[i].dropped > 0) order.push_back(i);
  }
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return layout_.columns[i].dropped; });
  for (const std::size_t i : order) {
    if (width <= layout_.width) break;
    shown_[i] = false;
    width -= layout_.gap + leastOf(layout_.columns[i]);
  }
}

/// Takes from the columns that may be cut what the line is too long by.
void TableWriter::narrow() {
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    TableColumn& column = layout_.columns[i];
    const int tooLong = std::max(lineWidth() - layout_.width, 0);
    if (isShown(i)) column.width -= std::min(tooLong, column.width - leastOf(column));
  }
}

void TableWriter::writeHead() {
  std::vector<std::string> headers;
  for (const TableColumn& column : layout_.columns) headers.push_back(column.header);
  writeRow(headers);
}

void TableWriter::writeRow(const std::vector<std::string>& cells) { writeRow("", 0, cells); }

void TableWriter::writeRow(const std::string& label, std::size_t first,
                           const std::vector<std::string>& cells) {
  std::vector<Place> places;
  int at = layout_.indent;
  if (first > 0) places.push_back({.text = screens::oneLine(label), .begin = at, .end = at});
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    if (!isShown(i)) continue;
    const TableColumn& column = layout_.columns[i];
    const int end = at + column.width;
    if (i < first) {
      places.front().end = end;
    } else {
      places.push_back({screens::oneLine(cells[i - first]), column.side, at, end, column.least});
    }
    at = end + layout_.gap;
  }
  writePlaces(std::move(places));
}

/// A text that is too long for its column takes the room of its left neighbours, where they have
/// blanks or may be cut, before it moves anything to the right.
void TableWriter::makeRoom(std::vector<Place>& places) const {
  Place& last = places.back();
  if (last.side == TableColumn::Side::Left && last.least == 0) {
    last.end = last.begin + displayWidth(last.text);
  }
  int room = last.end;
  for (std::size_t i = places.size(); i-- > 0;) {
    Place& place = places[i];
    place.end = std::min(place.end, room);
    const int width = displayWidth(place.text);
    const int needed = place.least > 0 ? std::min(width, place.least) : width;
    room = place.end - needed - layout_.gap;
  }
}

void TableWriter::writePlaces(std::vector<Place> places) {
  makeRoom(places);
  std::string line;
  int at = 0;
  for (Place& place : places) {
    const int least = at == 0 ? layout_.indent : at + layout_.gap;
    int width = displayWidth(place.text);
    int begin = place.side == TableColumn::Side::Right ? place.end - width
                                                       : std::min(place.begin, place.end - width);
    if (place.least > 0) begin = place.begin;
    begin = std::max(begin, least);
    if (place.least > 0 && begin + width > place.end) {
      // Where a line may be of any length nothing is cut below its least.
      width = std::max(place.end - begin, layout_.width == kAnyWidth ? place.least : 0);
      place.text = screens::fitted(place.text, width);
    }
    if (width == 0) continue;
    line.append(static_cast<std::size_t>(begin - at), ' ').append(place.text);
    at = begin + width;
  }
  out_ << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

void TableWriter::writeRule() {
  out_ << std::string(static_cast<std::size_t>(layout_.indent), ' ')
       << std::string(static_cast<std::size_t>(lineWidth() - layout_.indent), '-') << '\n';
}

void TableWriter::writeNotShown(const std::string& how) {
  std::vector<std::string> headers;
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    if (!isShown(i)) headers.push_back(layout_.columns[i].header);
  }
  if (headers.empty()) return;
  const std::string text = "Not shown: " + joined(headers, ", ") + " (" + how + ")";
  for (const std::string& line : screens::wrapped(text, layout_.width)) out_ << line << '\n';
}

void widen(std::vector<TableColumn>& columns, const std::vector<std::vector<std::string>>& rows) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    columns[i].width = std::max(columns[i].width, displayWidth(columns[i].header));
    for (const std::vector<std::string>& row : rows) {
      columns[i].width = std::max(columns[i].width, displayWidth(screens::oneLine(row[i])));
    }
  }
}

}  // namespace kt7::cli
