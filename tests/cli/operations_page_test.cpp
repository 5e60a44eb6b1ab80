#include "fronts/cli/pages/operations_page.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include <kt7/error.h>
#include <kt7/operation_notes.h>
#include <kt7/operations.h>
#include "base/text.h"
#include "command_fixture.h"
#include "fronts/cli/rpc/session.h"

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

constexpr const char* kGiven = "E0002";  // an employee, so that the work is done
constexpr const char* kOther = "E0003";

/// Which of the operation's texts are part of what it composed: by the name of the parameter, with
/// true where they stood between quotes.
class ComposedTextsTest : public SampleCompany {
 protected:
  template <typename... A>
  std::map<std::string, bool> found(const auto& operation, Where where, std::tuple<A...>*) {
    const std::vector<bool> isText{std::is_same_v<std::remove_cvref_t<A>, std::string>...};
    Json params = Json::object();
    std::size_t at = 0;
    ((params[operation.parameters[at++].name] = usual<std::remove_cvref_t<A>>()), ...);
    for (const Parameter& parameter : operation.parameters) {
      const std::string name(parameter.name);
      if (name.ends_with("Obj")) params.erase(name);
      if (name.ends_with("onnectionString")) params[name] = database();
    }
    std::map<std::string, bool> composed;
    for (at = 0; at < isText.size(); ++at) {
      const std::string name(operation.parameters[at].name);
      if (!isText[at] || params[name] != kOther) continue;
      params[name] = kGiven;
      const std::string text = composedBy(std::string(operation.name), where, params);
      params[name] = kOther;
      const std::size_t place = text.find(kGiven);
      if (place != std::string::npos) composed[name] = text[place - 1] == '\'';
    }
    return composed;
  }

 private:
  template <typename T>
  static Json usual() {
    if constexpr (std::is_same_v<T, std::string>) {
      return kOther;
    } else if constexpr (std::is_same_v<T, bool>) {
      return true;
    } else if constexpr (std::is_same_v<T, Date>) {
      return "2026-01-31";
    } else {
      return 1;
    }
  }

  /// The statements, the sources of pickers and the answered condition of a call.
  static std::string composedBy(const std::string& operation, Where where, const Json& params) {
    Session session({.connectionString = database(), .pick = {{}}, .trace = true});
    // What begins a transaction by itself finds no slip of that number and writes nothing.
    const bool begin = where != Where::OpensTransaction;
    if (begin) session.call("DataObj.BeginTransaction", Json::object());
    std::string text;
    try {
      const Json answer = session.call(operation, params);
      if (operation.starts_with("HRFilter")) text += answer["value"].dump();
    } catch (const Error&) {
      // What was composed of a text that makes no sense there is refused.
    }
    for (const Json& step : session.takeTrace()) {
      text += step.value("sql", "") + "\n" + step.value("source", "") + "\n";
    }
    if (begin) session.call("DataObj.RollbackTransaction", Json::object());
    return text;
  }
};

TEST_F(ComposedTextsTest, AreThoseOfTheNotes) {
  std::size_t at = 0;
  const auto compare = [&]<auto Member>(const Operation<Member>& operation) {
    const OperationNote& note = kOperationNotes[at++];
    std::map<std::string, bool> noted;
    const auto add = [&](std::string_view names, bool quoted) {
      for (std::string_view name : split(names, ',')) {
        if (!name.empty()) noted[std::string(trimmedBlanks(name))] = quoted;
      }
    };
    add(note.composed.asTheyStand, false);
    add(note.composed.betweenQuotes, true);
    using Arguments = typename Operation<Member>::Arguments;
    EXPECT_EQ(found(operation, note.where, static_cast<Arguments*>(nullptr)), noted)
        << operation.name;
  };
  std::apply([&](const auto&... rows) { (compare(rows), ...); }, kOperations);
}

}  // namespace
}  // namespace kt7::cli
