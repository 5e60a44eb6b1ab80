#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "screen.h"

namespace kt7::screens {

struct PickerColumn {
  std::string header;
  int weight = 0;  // its share of the screen's width, in the request's units; 0 hides it
};

struct PickerRow {
  std::string key;
  std::vector<std::string> cells;  // one line each, in column order
};

struct PickerList {
  std::string title;
  std::vector<PickerColumn> columns;
  std::vector<PickerRow> rows;
  bool multiSelect = false;
};

enum class PickerState { Open, Chosen, Cancelled };

/// A list that a person searches and picks from: which rows the search text leaves, where the
/// cursor stands, what is marked. Marks survive another search.
class PickerModel {
 public:
  explicit PickerModel(PickerList list);

  /// Obeys one key. Blank marks the row at the cursor where several may be picked, else it is part
  /// of the search text. Words of the search text are found in any column, each on its own.
  PickerState press(const Key& key);
  /// Key values joined by ",", in the order of the list: of the marked rows, without any of the row
  /// at the cursor; "" where there is none.
  std::string answer() const;

  const PickerList& list() const { return list_; }
  const std::string& search() const { return search_; }
  std::size_t shownCount() const { return shown_.size(); }
  std::size_t markedCount() const;
  /// Place in the list of the row that the search leaves at that place.
  std::size_t shownRow(std::size_t place) const { return shown_[place]; }
  bool isMarked(std::size_t row) const { return marked_[row]; }
  std::size_t cursor() const { return cursor_; }

  /// Scrolls so that the cursor is on a page of that many rows, and moves by that page from now on;
  /// answers the place of the page's first row.
  std::size_t scrollTo(std::size_t pageRows);

 private:
  void searchAnew();
  void moveBy(std::ptrdiff_t places);
  void toggleMark();
  void toggleShownMarks();

  PickerList list_;
  std::vector<std::string> searchForms_;
  std::vector<std::size_t> all_;
  std::vector<std::size_t> shown_;
  std::vector<bool> marked_;
  std::string search_;
  std::size_t cursor_ = 0;
  std::size_t top_ = 0;
  std::size_t pageRows_ = 1;
};

}  // namespace kt7::screens
