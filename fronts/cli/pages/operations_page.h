#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kt7::cli {

/// The reference of the operations and the profile as a page of Markdown: what the tables of
/// operations and of the profile know (names, types, directions, defaults, connections), with the
/// texts of fronts/cli/reference. std::logic_error where a text is missing.
std::string operationsPage();

/// The section of one operation or method of the profile; none where that is not described.
std::optional<std::string> operationSection(std::string_view name);

/// What operationSection knows.
std::vector<std::string_view> sectionNames();

}  // namespace kt7::cli
