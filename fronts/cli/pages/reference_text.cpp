#include "reference_text.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/text.h"

namespace kt7::cli {

namespace {

using Lines = std::vector<std::string>;

/// A heading of a file and the lines below it.
struct Said {
  std::string keyword;
  std::string name;
  Lines lines;
};

std::string joined(const Lines& lines, std::string_view separator) {
  std::string text;
  for (const std::string& line : lines) {
    if (&line != &lines.front()) text += separator;
    text += line;
  }
  return text;
}

std::string sentences(const Said& said) { return joined(said.lines, " "); }
std::string paragraphs(const Said& said) { return joined(said.lines, "\n"); }

ParameterText parameterText(const Said& said) {
  constexpr std::string_view kWhenEmpty = " | ";
  const std::string text = sentences(said);
  const std::size_t at = text.find(kWhenEmpty);
  if (at == std::string::npos) return {said.name, text, ""};
  return {said.name, text.substr(0, at), text.substr(at + kWhenEmpty.size())};
}

/// Puts what a file says where it belongs.
class AreaReader {
 public:
  explicit AreaReader(std::vector<ReferenceArea>& areas) : areas_(areas) {}

  /// False for a keyword that is unknown or stands where it says nothing.
  bool take(const Said& said) {
    if (said.keyword == "area") {
      areas_.push_back({said.name, paragraphs(said), {}, {}, {}});
      entry_ = nullptr;
      return true;
    }
    return !areas_.empty() && (beginsEntry(said) || (entry_ != nullptr && addsToEntry(said)));
  }

 private:
  bool beginsEntry(const Said& said) {
    ReferenceArea& area = areas_.back();
    const auto begin = [&](std::vector<ReferenceEntry>& entries) {
      entry_ = &entries.emplace_back();
      entry_->name = said.name;
      entry_->text = paragraphs(said);
      return true;
    };
    if (said.keyword == "operation") return begin(area.operations);
    if (said.keyword == "property") return begin(area.properties);
    return said.keyword == "method" && begin(area.methods);
  }

  bool addsToEntry(const Said& said) {
    const NamedText named{said.name, sentences(said)};
    if (said.keyword == "like") {
      entry_->like = said.name;
    } else if (said.keyword == "parameter") {
      entry_->parameters.push_back(parameterText(said));
    } else if (said.keyword == "reads") {
      entry_->reads.push_back(named);
    } else if (said.keyword == "writes") {
      entry_->writes.push_back(named);
    } else if (said.keyword == "error") {
      entry_->errors.push_back(named);
    } else if (said.keyword == "surprise") {
      entry_->surprises.push_back(named.text);
    } else if (said.keyword == "example") {
      entry_->example = said.lines;
    } else {
      return false;
    }
    return true;
  }

  std::vector<ReferenceArea>& areas_;
  ReferenceEntry* entry_ = nullptr;
};

/// Reads the headings of one file one after the other.
class SaidReader {
 public:
  explicit SaidReader(const ReferenceFile& file)
      : name_(file.name), lines_(split(std::string(file.text), '\n')) {}

  bool next(Said& said) {
    while (at_ < lines_.size() && lines_[at_].empty()) ++at_;
    if (at_ == lines_.size()) return false;
    heading_ = at_;
    const std::string& heading = lines_[at_++];
    const std::size_t end = std::min(heading.find(' '), heading.size());
    said = {heading.substr(0, end), std::string(trimmedBlanks(heading.substr(end))), {}};
    for (; at_ < lines_.size() && !beginsHeading(lines_[at_]); ++at_) {
      said.lines.push_back(lines_[at_].substr(std::min(kIndent, lines_[at_].size())));
    }
    while (!said.lines.empty() && said.lines.back().empty()) said.lines.pop_back();
    return true;
  }

  [[noreturn]] void refuse(const Said& said) const {
    throw std::runtime_error("reference/" + std::string(name_) + ", line " +
                             std::to_string(heading_ + 1) + ": '" + said.keyword +
                             "' says nothing here");
  }

 private:
  static constexpr std::size_t kIndent = 2;
  static bool beginsHeading(const std::string& line) { return !line.empty() && line[0] != ' '; }

  std::string_view name_;
  Lines lines_;
  std::size_t at_ = 0;
  std::size_t heading_ = 0;
};

const ReferenceEntry* findByName(const std::vector<ReferenceEntry>& entries,
                                 std::string_view name) {
  const auto at = std::find_if(entries.begin(), entries.end(),
                               [&](const ReferenceEntry& entry) { return entry.name == name; });
  return at != entries.end() ? &*at : nullptr;
}

}  // namespace

Reference::Reference(std::span<const ReferenceFile> files) {
  for (const ReferenceFile& file : files) {
    if (file.name == "introduction") {
      introduction_ = file.text;
      continue;
    }
    SaidReader reader(file);
    AreaReader area(areas_);
    for (Said said; reader.next(said);) {
      if (!area.take(said)) reader.refuse(said);
    }
  }
}

const ReferenceEntry* Reference::findOperation(std::string_view name) const {
  for (const ReferenceArea& area : areas_) {
    if (const ReferenceEntry* entry = findByName(area.operations, name)) return entry;
  }
  return nullptr;
}

const ParameterText* Reference::findParameter(const ReferenceEntry& entry,
                                              std::string_view name) const {
  for (const ParameterText& parameter : entry.parameters) {
    if (parameter.name == name) return &parameter;
  }
  const ReferenceEntry* other = findOperation(entry.like);
  return other != nullptr ? findParameter(*other, name) : nullptr;
}

const ReferenceEntry& Reference::effectsOf(const ReferenceEntry& entry) const {
  const ReferenceEntry* other = entry.saysEffects() ? nullptr : findOperation(entry.like);
  return other != nullptr ? effectsOf(*other) : entry;
}

const Reference& reference() {
  static const Reference kReference(referenceFiles());
  return kReference;
}

}  // namespace kt7::cli
