#pragma once

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kt7::data {

/// The most recently used entries by their text.
template <class Entry>
class LruCache {
 public:
  explicit LruCache(std::size_t capacity) : capacity_(capacity) {}

  /// Null when the text is not kept; valid until the next `keep`.
  Entry* find(std::string_view text) {
    const auto at = places_.find(text);
    if (at == places_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, at->second);
    return &at->second->second;
  }

  Entry& keep(std::string_view text, Entry entry) {
    if (const auto at = places_.find(text); at != places_.end()) {
      at->second->second = std::move(entry);
      return at->second->second;
    }
    if (entries_.size() >= capacity_) {
      places_.erase(entries_.back().first);
      entries_.pop_back();
    }
    entries_.emplace_front(std::string(text), std::move(entry));
    places_.emplace(entries_.front().first, entries_.begin());
    return entries_.front().second;
  }

  void clear() {
    places_.clear();
    entries_.clear();
  }

 private:
  using Entries = std::list<std::pair<std::string, Entry>>;
  std::size_t capacity_;
  Entries entries_;
  std::unordered_map<std::string_view, typename Entries::iterator> places_;
};

}  // namespace kt7::data
