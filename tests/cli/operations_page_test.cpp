#include "fronts/cli/pages/operations_page.h"

#include <map>
#include <set>

#include <kt7/error.h>
#include <kt7/operation_notes.h>
#include <kt7/operations.h>
#include "base/text.h"
#include "command_fixture.h"
#include "fronts/cli/pages/operation_shape.h"
#include "fronts/cli/pages/reference_text.h"
#include "fronts/cli/rpc/session.h"
#include "support/engine.h"

namespace kt7::cli {
namespace {

using Names = std::vector<std::string>;

template <typename Rows>
Names namesOf(const Rows& rows) {
  Names names;
  for (const auto& row : rows) names.emplace_back(row.name);
  return names;
}

/// The names of all areas' operations, properties or methods, in the order of the files.
Names namesOf(std::vector<ReferenceEntry> ReferenceArea::*entries) {
  Names names;
  for (const ReferenceArea& area : reference().areas()) {
    for (const ReferenceEntry& entry : area.*entries) names.push_back(entry.name);
  }
  return names;
}

/// Every operation and method with what its table has of it.
std::vector<std::pair<const ReferenceEntry*, const OperationShape*>> described() {
  std::vector<std::pair<const ReferenceEntry*, const OperationShape*>> all;
  std::size_t operation = 0, method = 0;
  for (const ReferenceArea& area : reference().areas()) {
    for (const auto& entry : area.operations) {
      all.emplace_back(&entry, &operationShapes().at(operation++));
    }
    for (const auto& entry : area.methods) {
      all.emplace_back(&entry, &profileMethodShapes().at(method++));
    }
  }
  return all;
}

TEST(OperationsPage, TextsStandInTheOrderOfTheTables) {
  EXPECT_EQ(namesOf(kOperationNotes), namesOf(operationShapes()));
  EXPECT_EQ(namesOf(&ReferenceArea::operations), namesOf(operationShapes()));
  EXPECT_EQ(namesOf(&ReferenceArea::methods), namesOf(profileMethodShapes()));
  EXPECT_EQ(namesOf(&ReferenceArea::properties), namesOf(profilePropertyShapes()));
}

TEST(OperationsPage, EveryParameterHasItsTextAndEveryTextItsParameter) {
  for (const auto& [entry, shape] : described()) {
    EXPECT_FALSE(entry->text.empty() || entry->example.empty()) << entry->name;
    EXPECT_TRUE(entry->like.empty() || reference().findOperation(entry->like)) << entry->name;
    std::set<std::string_view> known;
    for (const ParameterShape& parameter : shape->parameters) {
      if (parameter.isObject()) continue;
      known.insert(parameter.name);
      const ParameterText* text = reference().findParameter(*entry, parameter.name);
      EXPECT_TRUE(text && !text->meaning.empty() && !text->whenEmpty.empty())
          << entry->name << ": no text on " << parameter.name;
    }
    for (const ParameterText& text : entry->parameters) {
      EXPECT_TRUE(known.erase(text.name)) << entry->name << ": unknown or twice: " << text.name;
    }
    for (const NamedText& error : entry->errors) {
      const Names kinds = namesOf(errorKinds());
      EXPECT_TRUE(std::count(kinds.begin(), kinds.end(), error.name)) << error.name;
    }
  }
}

/// Whether the schema has the column in that table or view; a view names some "X AS Y".
bool hasColumn(const std::string& owner, const std::string& column) {
  if (const schema::Table* table = schema::findTable(owner)) {
    return schema::findColumn(*table, column) != nullptr;
  }
  const schema::View* view = schema::findView(owner);
  return view != nullptr &&
         std::any_of(view->columns.begin(), view->columns.end(), [&](const std::string& one) {
           const std::size_t as = one.find(" AS ");
           return equalNoCase(as == std::string::npos ? one : one.substr(as + 4), column);
         });
}

TEST(OperationsPage, NamesColumnsThatTheSchemaHas) {
  for (const auto& [entry, shape] : described()) {
    const OperationNote* note =
        std::find_if(kOperationNotes.begin(), kOperationNotes.end(),
                     [&name = entry->name](const OperationNote& one) { return one.name == name; });
    const ReferenceEntry& effects = reference().effectsOf(*entry);
    const auto check = [&, name = entry->name](const std::vector<NamedText>& owners,
                                               std::string_view noted) {
      std::string all;
      for (const NamedText& owner : owners) {
        all += owner.name + " ";
        if (!owner.name.starts_with("KT7")) continue;
        for (const std::string& column : split(replaceAll(owner.text, " to ", ","), ',')) {
          EXPECT_TRUE(hasColumn(owner.name, std::string(trimmedBlanks(column))))
              << name << ": " << owner.name << "." << column;
        }
      }
      for (const std::string& part : split(noted, ',')) {
        const std::string owner(trimmedBlanks(part));
        if (!owner.starts_with("KT7")) continue;
        EXPECT_NE(all.find(owner + " "), std::string::npos) << name << ": no word on " << owner;
      }
    };
    check(effects.reads, note != kOperationNotes.end() ? note->reads : "");
    check(effects.writes, note != kOperationNotes.end() ? note->writes : "");
  }
}

TEST(OperationsPage, ThePageInTheDocumentsIsTheGeneratedOne) {
  std::ifstream file(KT7_SOURCE_DIR "/docs/operations.md");
  ASSERT_TRUE(file) << "make it with: kt7hr operations > docs/operations.md";
  std::stringstream kept;
  kept << file.rdbuf();
  // Not EXPECT_EQ, which prints two thousand lines twice.
  EXPECT_TRUE(kept.str() == operationsPage())
      << "make it with: kt7hr operations > docs/operations.md";
}

TEST(OperationsPage, IsPrintedWholeOrAnOperationAtATime) {
  EXPECT_EQ(kt7hr({"operations"}).out, operationsPage());
  const Outcome one = kt7hr({"operations", "GETDAYRATE"});
  EXPECT_TRUE(one.out.starts_with("### GETDAYRATE\n")) << one.out;
  EXPECT_NE(operationsPage().find(one.out), std::string::npos);
  EXPECT_NE(kt7hr({"operations", "GetDayRate"}).err.find("did you mean 'GETDAYRATE'"),
            std::string::npos);
}

/// A line of an example as a shell would take it, with what stands below it.
struct Command {
  explicit Command(const std::string& line) {
    bool quoted = false;
    for (const char c : line + " ") {
      if (c == '\'') {
        quoted = !quoted;
      } else if (c == ' ' && !quoted) {
        if (!word.empty()) words.push_back(word);
        word.clear();
      } else {
        word += c;
      }
    }
  }
  std::vector<std::string> words;
  std::string word, input, answer;
  bool dropped = false;  // what it says goes to /dev/null
};

std::vector<Command> commandsOf(const std::vector<std::string>& example) {
  std::vector<Command> commands;
  bool input = false;
  for (const std::string& line : example) {
    if (line.starts_with("kt7hr ")) {
      Command& command = commands.emplace_back(line.substr(6));
      std::vector<std::string>& words = command.words;
      input = words.back() == "<<END";
      if (input) words.pop_back();
      command.dropped = words.back() == "/dev/null";
      if (command.dropped) words.resize(words.size() - 2);
    } else if (input && line == "END") {
      input = false;
    } else {
      (input ? commands.at(commands.size() - 1).input : commands.at(commands.size() - 1).answer) +=
          line + "\n";
    }
  }
  return commands;
}

// On the embedded engine, as the page says: a company for each example takes a server minutes.
TEST(OperationsPage, ExamplesAnswerAsTheySay) {
  for (const auto& [entry, shape] : described()) {
    const std::vector<Command> commands = commandsOf(entry->example);
    EXPECT_TRUE(std::any_of(commands.begin(), commands.end(),
                            [name = entry->name](const auto& one) {
                              return (one.words.size() > 1 && one.words[1] == name) ||
                                     one.input.find("." + name + "\"") != std::string::npos;
                            }))
        << entry->name << ": its example is of something else";
    const test::TemporaryDatabase company(test::embeddedEngine());
    makeSampleCompany(company);
    const std::string& on = company.connectionString();
    for (Command command : commands) {
      for (std::string& word : command.words) {
        word = replaceAll(word, "Driver=SQLite;Database=company.db", on);
      }
      command.words.insert(command.words.end(), {"--db", on});
      const Outcome outcome = kt7hr(command.words, command.input);
      EXPECT_EQ((command.dropped ? "" : outcome.out) + outcome.err, command.answer) << entry->name;
    }
  }
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
