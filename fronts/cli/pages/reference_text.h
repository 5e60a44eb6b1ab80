#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reference_files.h"

namespace kt7::cli {

struct NamedText {
  std::string name;
  std::string text;
};

/// What a parameter means, with its unit, and what 0, "", false or a blank date means in it.
struct ParameterText {
  std::string name;
  std::string meaning;
  std::string whenEmpty;
};

/// What the reference says of an operation, a property or a method. Names, types, directions and
/// defaults are not said here: they come from the tables of operations and of the profile.
struct ReferenceEntry {
  std::string name;
  std::string text;
  std::string like;  // the operation that has what is not said here; "" for none
  std::vector<ParameterText> parameters;
  std::vector<NamedText> reads;   // a table each, with its columns
  std::vector<NamedText> writes;  // as reads
  std::vector<NamedText> errors;  // a kind each
  std::vector<std::string> surprises;
  std::vector<std::string> example;  // its lines as they stand

  bool saysEffects() const { return !reads.empty() || !writes.empty() || !errors.empty(); }
};

struct ReferenceArea {
  std::string title;
  std::string text;
  std::vector<ReferenceEntry> operations;
  std::vector<ReferenceEntry> properties;
  std::vector<ReferenceEntry> methods;
};

/// The texts of the reference, read from its files. A line that begins in the first column names
/// what the indented lines below it say:
///
///     operation GETDAYRATE        parameter EmployeeCode
///       Pay for one working day     The employee. | "" answers 0.
///
/// "area", "operation", "method", "property" begin something; "parameter", "reads", "writes",
/// "error", "surprise", "example" belong to the last of these; "like" names an operation that has
/// the parameters and effects that are not said again. The file "introduction" is taken as it is.
class Reference {
 public:
  /// std::runtime_error, with file and line, for what cannot be read.
  explicit Reference(std::span<const ReferenceFile> files);

  const std::string& introduction() const { return introduction_; }
  const std::vector<ReferenceArea>& areas() const { return areas_; }

  /// Null where there is none of that name.
  const ReferenceEntry* findOperation(std::string_view name) const;
  /// The entry's own text of a parameter, or that of the operation it is like; null for none.
  const ParameterText* findParameter(const ReferenceEntry& entry, std::string_view name) const;
  /// The entry itself, or the operation that it is like where that one says reads, writes, errors.
  const ReferenceEntry& effectsOf(const ReferenceEntry& entry) const;

 private:
  std::string introduction_;
  std::vector<ReferenceArea> areas_;
};

/// The reference that was built into the program.
const Reference& reference();

}  // namespace kt7::cli
