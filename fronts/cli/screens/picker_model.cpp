#include "picker_model.h"

#include <algorithm>
#include <numeric>

#include "base/text.h"
#include "fronts/common/display_text.h"

namespace kt7::screens {

PickerModel::PickerModel(PickerList list)
    : list_(std::move(list)), all_(list_.rows.size()), marked_(list_.rows.size(), false) {
  searchForms_.reserve(list_.rows.size());
  for (const PickerRow& row : list_.rows) {
    // The tab keeps a word from being found across two columns.
    std::string form;
    for (const std::string& cell : row.cells) form.append(searchForm(cell)).append("\t");
    searchForms_.push_back(std::move(form));
  }
  std::iota(all_.begin(), all_.end(), std::size_t{0});
  shown_ = all_;
}

PickerState PickerModel::press(const Key& key) {
  const auto page = static_cast<std::ptrdiff_t>(pageRows_);
  const auto everything = static_cast<std::ptrdiff_t>(shown_.size());
  switch (key.kind) {
    case KeyKind::Text:
      if (key.text == " " && list_.multiSelect) {
        toggleMark();
      } else {
        search_ += key.text;
        searchAnew();
      }
      break;
    case KeyKind::Up:
      moveBy(-1);
      break;
    case KeyKind::Down:
      moveBy(1);
      break;
    case KeyKind::PageUp:
      moveBy(-page);
      break;
    case KeyKind::PageDown:
      moveBy(page);
      break;
    case KeyKind::First:
      moveBy(-everything);
      break;
    case KeyKind::Last:
      moveBy(everything);
      break;
    case KeyKind::Erase:
      eraseLastCharacter(search_);
      searchAnew();
      break;
    case KeyKind::EraseAll:
      search_.clear();
      searchAnew();
      break;
    case KeyKind::MarkAll:
      if (list_.multiSelect) toggleShownMarks();
      break;
    case KeyKind::Enter:
      return answer().empty() ? PickerState::Open : PickerState::Chosen;
    case KeyKind::Escape:
    case KeyKind::Gone:
      return PickerState::Cancelled;
    case KeyKind::Resize:
    case KeyKind::Other:
      break;
  }
  return PickerState::Open;
}

std::string PickerModel::answer() const {
  std::string keys;
  for (const std::size_t row : all_) {
    if (!marked_[row]) continue;
    if (!keys.empty()) keys += ',';
    keys += list_.rows[row].key;
  }
  if (keys.empty() && cursor_ < shown_.size()) keys = list_.rows[shown_[cursor_]].key;
  return keys;
}

std::size_t PickerModel::markedCount() const {
  return static_cast<std::size_t>(std::count(marked_.begin(), marked_.end(), true));
}

std::size_t PickerModel::scrollTo(std::size_t pageRows) {
  pageRows_ = std::max<std::size_t>(pageRows, 1);
  if (cursor_ < top_) top_ = cursor_;
  if (cursor_ >= top_ + pageRows_) top_ = cursor_ - pageRows_ + 1;
  // A page that grew shows rows above rather than emptiness below.
  if (top_ + pageRows_ > shown_.size()) {
    top_ = shown_.size() > pageRows_ ? shown_.size() - pageRows_ : 0;
  }
  return top_;
}

void PickerModel::searchAnew() {
  std::vector<std::string> words = split(searchForm(search_), ' ');
  std::erase(words, "");
  const bool hadRow = cursor_ < shown_.size();
  const std::size_t rowAtCursor = hadRow ? shown_[cursor_] : 0;
  shown_.clear();
  for (const std::size_t row : all_) {
    const std::string& form = searchForms_[row];
    if (std::all_of(words.begin(), words.end(), [&](const std::string& word) {
          return form.find(word) != std::string::npos;
        })) {
      shown_.push_back(row);
    }
  }
  const auto same = std::lower_bound(shown_.begin(), shown_.end(), rowAtCursor);
  const bool stays = hadRow && same != shown_.end() && *same == rowAtCursor;
  cursor_ = stays ? static_cast<std::size_t>(same - shown_.begin()) : 0;
}

void PickerModel::moveBy(std::ptrdiff_t places) {
  if (shown_.empty()) return;
  const auto last = static_cast<std::ptrdiff_t>(shown_.size()) - 1;
  cursor_ = static_cast<std::size_t>(
      std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(cursor_) + places, 0, last));
}

void PickerModel::toggleMark() {
  if (cursor_ >= shown_.size()) return;
  marked_[shown_[cursor_]] = !marked_[shown_[cursor_]];
  moveBy(1);
}

void PickerModel::toggleShownMarks() {
  const bool allMarked = std::all_of(shown_.begin(), shown_.end(),
                                     [&](std::size_t row) { return bool{marked_[row]}; });
  for (const std::size_t row : shown_) marked_[row] = !allMarked;
}

}  // namespace kt7::screens
