#pragma once

#include <string>

namespace kt7::cli {

/// The list of operations as a page of Markdown, made from the table of operations: each on one
/// line with its signature, what it answers, reads and writes, and whose connection it uses.
std::string operationsPage();

}  // namespace kt7::cli
