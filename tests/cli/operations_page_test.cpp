#include "fronts/cli/pages/operations_page.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <kt7/operation_notes.h>
#include <kt7/operations.h>

namespace kt7::cli {
namespace {

TEST(OperationsPage, NotesStandInTheOrderOfTheTable) {
  std::size_t at = 0;
  const auto compare = [&](const auto& row) { EXPECT_EQ(kOperationNotes[at++].name, row.name); };
  std::apply([&](const auto&... rows) { (compare(rows), ...); }, kOperations);
}

TEST(OperationsPage, ThePageInTheDocumentsIsTheGeneratedOne) {
  std::ifstream file(KT7_SOURCE_DIR "/docs/operations.md");
  ASSERT_TRUE(file) << "make it with: kt7hr operations > docs/operations.md";
  std::stringstream kept;
  kept << file.rdbuf();
  EXPECT_EQ(kept.str(), operationsPage()) << "make it with: kt7hr operations > docs/operations.md";
}

}  // namespace
}  // namespace kt7::cli
