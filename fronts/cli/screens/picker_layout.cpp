#include "picker_layout.h"

#include <algorithm>
#include <numeric>

#include "fronts/common/display_text.h"

namespace kt7::screens {

namespace {

constexpr int kLinesAboveRows = 3;  // title, search text, headers
constexpr int kLinesBelowRows = 1;
constexpr std::string_view kGap = "  ";
constexpr std::string_view kMarked = "[x] ";
constexpr std::string_view kUnmarked = "[ ] ";

constexpr std::string_view kKeysOfOne = "Enter picks   Esc picks nothing   type to search";
constexpr std::string_view kKeysOfMany =
    "Space marks   Ctrl-A marks all shown   Enter picks   Esc picks nothing   type to search";

std::vector<int> widthsOf(const PickerList& list, int cells) {
  std::vector<int> weights;
  for (const PickerColumn& column : list.columns) weights.push_back(column.weight);
  const auto columns = std::count_if(weights.begin(), weights.end(), [](int w) { return w > 0; });
  const int gaps = std::max(static_cast<int>(columns) - 1, 0) * static_cast<int>(kGap.size());
  return columnWidths(weights, cells - gaps);
}

/// Texts in columns of those widths; a column without a cell is left out.
std::string inColumns(std::string line, const std::vector<std::string>& texts,
                      const std::vector<int>& widths) {
  bool first = true;
  for (std::size_t column = 0; column < widths.size(); ++column) {
    if (widths[column] <= 0) continue;
    if (!first) line += kGap;
    line += fitted(column < texts.size() ? texts[column] : "", widths[column]);
    first = false;
  }
  return line;
}

std::string statusText(const PickerModel& model) {
  std::string text =
      std::to_string(model.shownCount()) + " of " + std::to_string(model.list().rows.size());
  if (model.list().multiSelect) text += ", " + std::to_string(model.markedCount()) + " marked";
  return text + "   " + std::string(model.list().multiSelect ? kKeysOfMany : kKeysOfOne);
}

void appendRows(std::vector<ScreenLine>& lines, PickerModel& model, std::size_t pageRows,
                const std::vector<int>& widths) {
  const PickerList& list = model.list();
  const std::size_t top = model.scrollTo(pageRows);
  for (std::size_t place = top; place < top + pageRows; ++place) {
    if (place >= model.shownCount()) {
      const bool nothing = place == 0;
      lines.push_back({nothing ? "Nothing found." : "", LineStyle::Plain});
      continue;
    }
    const std::size_t row = model.shownRow(place);
    std::string mark;
    if (list.multiSelect) mark = model.isMarked(row) ? kMarked : kUnmarked;
    lines.push_back({inColumns(std::move(mark), list.rows[row].cells, widths),
                     place == model.cursor() ? LineStyle::Cursor : LineStyle::Plain});
  }
}

std::string repeated(std::string_view piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

}  // namespace

std::vector<int> columnWidths(const std::vector<int>& weights, int cells) {
  std::vector<int> widths(weights.size(), 0);
  const int total = std::accumulate(weights.begin(), weights.end(), 0);
  if (total <= 0) return widths;
  // Each column ends where its share of the whole ends, so that the shares add up to all cells.
  int weightSoFar = 0;
  int end = 0;
  for (std::size_t column = 0; column < weights.size(); ++column) {
    if (weights[column] <= 0) continue;
    weightSoFar += weights[column];
    const int share =
        static_cast<int>(static_cast<long long>(std::max(cells, 0)) * weightSoFar / total);
    widths[column] = share - end;
    end = share;
  }
  // A cell for a column too narrow for one comes from the widest.
  for (std::size_t column = 0; column < weights.size(); ++column) {
    const auto widest = std::max_element(widths.begin(), widths.end());
    if (weights[column] <= 0 || widths[column] > 0 || *widest < 2) continue;
    --*widest;
    ++widths[column];
  }
  return widths;
}

std::vector<ScreenLine> pickerScreen(PickerModel& model, ScreenSize size) {
  const PickerList& list = model.list();
  const std::string indent(list.multiSelect ? kMarked.size() : 0, ' ');
  const std::vector<int> widths = widthsOf(list, size.width - static_cast<int>(indent.size()));
  std::vector<std::string> headers;
  for (const PickerColumn& column : list.columns) headers.push_back(column.header);

  std::vector<ScreenLine> lines{{list.title, LineStyle::Title},
                                {"Search: " + model.search() + "_", LineStyle::Plain},
                                {inColumns(indent, headers, widths), LineStyle::Header}};
  const int pageRows = std::max(size.height - kLinesAboveRows - kLinesBelowRows, 1);
  appendRows(lines, model, static_cast<std::size_t>(pageRows), widths);
  lines.push_back({statusText(model), LineStyle::Status});
  for (ScreenLine& line : lines) line.text = fitted(line.text, size.width);
  if (lines.size() > static_cast<std::size_t>(size.height)) {
    lines.resize(static_cast<std::size_t>(std::max(size.height, 0)));
  }
  return lines;
}

std::vector<ScreenLine> messageScreen(std::string_view text, ScreenSize size) {
  constexpr int kWidest = 72;
  constexpr int kFrame = 4;  // a line and a blank on either side
  const int width = std::min(size.width - kFrame, kWidest);
  std::vector<std::string> texts = wrapped(text, width);
  const auto room = static_cast<std::size_t>(std::max(size.height - kFrame, 1));
  if (texts.size() > room) texts.resize(room);
  texts.insert(texts.end(), {"", "Press any key"});

  int inner = 0;
  for (const std::string& line : texts) inner = std::max(inner, displayWidth(line));
  const auto above = std::max(size.height - static_cast<int>(texts.size()) - 2, 0) / 2;
  const std::string left(static_cast<std::size_t>(std::max(size.width - inner - kFrame, 0) / 2),
                         ' ');
  std::vector<ScreenLine> lines(static_cast<std::size_t>(above));
  lines.push_back({left + "┌" + repeated("─", inner + 2) + "┐"});
  for (const std::string& line : texts) lines.push_back({left + "│ " + fitted(line, inner) + " │"});
  lines.push_back({left + "└" + repeated("─", inner + 2) + "┘"});
  for (ScreenLine& line : lines) line.text = fitted(line.text, size.width);
  return lines;
}

}  // namespace kt7::screens
