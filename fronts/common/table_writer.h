#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace kt7::cli {

/// Cells of a line where nobody knows of a terminal.
inline constexpr int kUnknownWidth = 100;
/// For a table that is as wide as its columns.
inline constexpr int kAnyWidth = 0;

struct TableColumn {
  enum class Side { Left, Right };

  std::string header = {};
  Side side = Side::Left;
  int width = 0;  // in cells
  /// Cells that are enough in a narrow table, or in a row with a long text elsewhere: a text is cut
  /// there. 0: its texts are shown whole, whatever their length.
  int least = 0;
  /// Which columns a table that is too wide goes without: 1 before 2. 0: it always has it.
  int dropped = 0;
};

struct TableLayout {
  std::vector<TableColumn> columns;
  int width = kUnknownWidth;  // of a line, in cells
  int gap = 1;
  int indent = 0;
};

/// A table for people, written row by row: cells are made one line of printable text and aligned by
/// the cells that they take on a screen. A text longer than its column moves its neighbours by no
/// more than it must, and cuts those that may be cut, so that the row ends where the others do.
class TableWriter {
 public:
  /// The stream must outlive the writer.
  TableWriter(std::ostream& out, TableLayout layout);

  void writeHead();
  /// A cell for every column, also for those that the table goes without.
  void writeRow(const std::vector<std::string>& cells);
  /// A row whose first cells are one text over the columns before `first`.
  void writeRow(const std::string& label, std::size_t first, const std::vector<std::string>& cells);
  void writeRule();
  /// "Not shown: Tax, Net (how)", in as many lines as it takes; nothing where all columns are.
  void writeNotShown(const std::string& how);

 private:
  struct Place;

  int lineWidth() const;  // with the indent
  bool isShown(std::size_t column) const { return shown_[column]; }
  void leaveOut();
  void narrow();
  void makeRoom(std::vector<Place>& places) const;
  void writePlaces(std::vector<Place> places);

  std::ostream& out_;
  TableLayout layout_;
  std::vector<bool> shown_;
};

/// Makes each column as wide as its widest text, for a table whose rows are known.
void widen(std::vector<TableColumn>& columns, const std::vector<std::vector<std::string>>& rows);

}  // namespace kt7::cli
