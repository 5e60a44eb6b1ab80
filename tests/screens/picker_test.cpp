#include <gtest/gtest.h>

#include <numeric>

#include <kt7/error.h>
#include "fronts/cli/screens/picker_layout.h"
#include "fronts/cli/screens/picker_list.h"
#include "fronts/common/display_text.h"
#include "support/company.h"

namespace kt7::screens {
namespace {

PickerList people(bool multiSelect) {
  return {"รายชื่อ",
          {{"รหัส", 1000}, {"ชื่อ", 2000}, {"ฝ่าย", 1000}},
          {{"E1", {"E1", "สมชาย", "Office"}},
           {"E2", {"E2", "สมหญิง", "Factory"}},
           {"E3", {"E3", "มานี", "Office"}},
           {"E4", {"E4", "Anna", "Service"}}},
          multiSelect};
}

void type(PickerModel& model, std::initializer_list<const char*> characters) {
  for (const char* character : characters) model.press({KeyKind::Text, character});
}

std::string shownKeys(const PickerModel& model) {
  std::string keys;
  for (std::size_t place = 0; place < model.shownCount(); ++place) {
    keys += model.list().rows[model.shownRow(place)].key;
  }
  return keys;
}

TEST(Picker, NarrowsWithEveryCharacterTyped) {
  PickerModel model(people(false));
  struct Step {
    Key key;
    const char* search;
    const char* shown;
  };
  for (const Step& step :
       {Step{{KeyKind::Text, "ส"}, "ส", "E1E2"}, Step{{KeyKind::Text, "ม"}, "สม", "E1E2"},
        Step{{KeyKind::Text, "ห"}, "สมห", "E2"}, Step{{KeyKind::Text, "x"}, "สมหx", ""},
        Step{{KeyKind::Erase, ""}, "สมห", "E2"}, Step{{KeyKind::EraseAll, ""}, "", "E1E2E3E4"},
        Step{{KeyKind::Text, "O"}, "O", "E1E2E3"}, Step{{KeyKind::Text, "F"}, "OF", "E1E3"},
        Step{{KeyKind::Text, " "}, "OF ", "E1E3"}, Step{{KeyKind::Text, "ม"}, "OF ม", "E1E3"},
        Step{{KeyKind::Text, "า"}, "OF มา", "E3"}}) {
    EXPECT_EQ(model.press(step.key), PickerState::Open);
    EXPECT_EQ(model.search(), step.search);
    EXPECT_EQ(shownKeys(model), step.shown) << step.search;
  }
}

TEST(Picker, AToneTypedBeforeItsVowelIsFoundAll) {
  PickerList list = people(false);
  list.rows[2].cells[1] = "กุ่ย";
  PickerModel model(std::move(list));
  type(model, {"ก", "่", "ุ"});
  EXPECT_EQ(shownKeys(model), "E3");
}

TEST(Picker, AnswersTheRowAtTheCursorOrWhatIsMarked) {
  PickerModel one(people(false));
  one.press({KeyKind::Down, ""});
  EXPECT_EQ(one.answer(), "E2");
  one.press({KeyKind::Last, ""});
  one.press({KeyKind::Down, ""});
  EXPECT_EQ(one.press({KeyKind::Enter, ""}), PickerState::Chosen);
  EXPECT_EQ(one.answer(), "E4");
  EXPECT_EQ(one.press({KeyKind::Escape, ""}), PickerState::Cancelled);
  EXPECT_EQ(one.press({KeyKind::Gone, ""}), PickerState::Cancelled);

  PickerModel many(people(true));
  many.press({KeyKind::Last, ""});
  type(many, {" "});
  type(many, {"a", "n", "n"});
  many.press({KeyKind::EraseAll, ""});
  many.press({KeyKind::First, ""});
  type(many, {" "});
  EXPECT_EQ(many.cursor(), 1U);
  EXPECT_EQ(many.answer(), "E1,E4") << "in the order of the list, whatever was searched since";
  type(many, {"o", "f", "f", "i"});
  many.press({KeyKind::MarkAll, ""});
  EXPECT_EQ(many.answer(), "E1,E3,E4");
  many.press({KeyKind::MarkAll, ""});
  EXPECT_EQ(many.answer(), "E4");
}

TEST(Picker, PicksNothingWhereNothingIsFound) {
  PickerModel model(people(false));
  type(model, {"z"});
  EXPECT_EQ(model.press({KeyKind::Enter, ""}), PickerState::Open);
  EXPECT_EQ(model.answer(), "");
  PickerModel empty(PickerList{});
  for (const KeyKind kind : {KeyKind::Down, KeyKind::PageUp, KeyKind::Last, KeyKind::Enter}) {
    EXPECT_EQ(empty.press({kind, ""}), PickerState::Open);
  }
}

TEST(Picker, KeepsTheCursorOnThePage) {
  PickerList list;
  list.columns = {{"A", 1}};
  for (int i = 0; i < 100; ++i) list.rows.push_back({std::to_string(i), {std::to_string(i)}});
  PickerModel model(std::move(list));
  EXPECT_EQ(model.scrollTo(10), 0U);
  model.press({KeyKind::PageDown, ""});
  EXPECT_EQ(model.scrollTo(10), 1U);
  model.press({KeyKind::Last, ""});
  EXPECT_EQ(model.scrollTo(10), 90U);
  EXPECT_EQ(model.scrollTo(30), 70U);
  EXPECT_EQ(model.scrollTo(5), 95U);
  type(model, {"9", "9"});
  EXPECT_EQ(model.scrollTo(5), 0U);
}

TEST(PickerScreen, SharesTheCellsByTheWidthsAskedFor) {
  EXPECT_EQ(columnWidths({1200, 1200, 2000, 1000, 2000, 2000}, 94),
            (std::vector<int>{12, 12, 20, 10, 20, 20}));
  EXPECT_EQ(columnWidths({1, 1, 1000}, 10), (std::vector<int>{1, 1, 8}));
  EXPECT_EQ(columnWidths({1, 0, 1}, 8), (std::vector<int>{4, 0, 4}));
  EXPECT_EQ(columnWidths({0}, 8), (std::vector<int>{0}));
  for (const int cells : {0, 1, 2, 7, 79, 80, 133}) {
    const std::vector<int> widths = columnWidths({1600, 2500, 2500}, cells);
    EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), cells);
  }
}

TEST(PickerScreen, ShowsTitleSearchHeadersRowsAndCounts) {
  PickerModel model(people(true));
  type(model, {" ", "o", "f", "f"});
  const std::vector<ScreenLine> lines = pickerScreen(model, {8, 32});
  const std::vector<std::pair<std::string, LineStyle>> expected{
      {"รายชื่อ", LineStyle::Title},
      {"Search: off_", LineStyle::Plain},
      {"    รหัส     ชื่อ            ฝ่าย", LineStyle::Header},
      {"[x] E1      สมชาย         Office", LineStyle::Plain},
      {"[ ] E3      มานี           Office", LineStyle::Plain},
      {"", LineStyle::Plain},
      {"", LineStyle::Plain},
      {"2 of 4, 1 marked", LineStyle::Status}};
  ASSERT_EQ(lines.size(), expected.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(displayWidth(lines[i].text), 32);
    EXPECT_TRUE(lines[i].text.starts_with(expected[i].first)) << lines[i].text;
  }
  EXPECT_EQ(lines[3].style, model.cursor() == 0 ? LineStyle::Cursor : LineStyle::Plain);
}

TEST(PickerScreen, StaysWithinAnySize) {
  PickerModel model(people(true));
  for (int height = 0; height < 12; ++height) {
    for (const int width : {0, 1, 3, 20, 200}) {
      const std::vector<ScreenLine> lines = pickerScreen(model, {height, width});
      EXPECT_LE(lines.size(), static_cast<std::size_t>(height));
      for (const ScreenLine& line : lines) EXPECT_EQ(displayWidth(line.text), width);
      for (const ScreenLine& line : messageScreen("ข้อความ\nmore", {height, width})) {
        EXPECT_LE(displayWidth(line.text), std::max(width, 0));
      }
    }
  }
}

PickerRequest employees(const char* source) {
  return {"เลือก",
          "TEmpCode",
          "TEmpCostGroup,TEmpFirstName",
          "บัญชีต้นทุน;Office;Service;Factory,ชื่อ",
          "1000,2000",
          "13,0",
          source};
}

TEST(PickerList, ShowsNamedValuesByTheirNamesAndResolvesDates) {
  test::Company company;
  company.run(
      "INSERT INTO KT7TEmployee (TEmpCode, TEmpFirstName, TEmpCostGroup, TEmpResignDate) VALUES "
      "('E1', 'ก\nข', 0, '2026-01-31'), ('E2', 'B', 2, '2026-02-01'), ('E3', 'C', 3, NULL), "
      "('E4', 'D', NULL, '2026-03-01'), ('E5', 'E', -1, '2026-03-01')");
  const PickerList list = readPickerList(
      employees("KT7VEmployee WHERE TEmpResignDate>#$2026-01-31#$ OR TEmpCode<>'E1' ORDER BY "
                "TEmpCode DESC"),
      company.connectionString(), true);
  EXPECT_EQ(list.columns[0].header, "บัญชีต้นทุน");
  EXPECT_EQ(list.columns[1].weight, 2000);
  std::vector<std::string> rows;
  for (const PickerRow& row : list.rows) rows.push_back(row.key + "|" + row.cells[0]);
  EXPECT_EQ(rows, (std::vector<std::string>{"E5|-1", "E4|", "E3|3", "E2|Factory"}));

  const PickerList first = readPickerList(employees("KT7VEmployee WHERE TEmpCode='E1'"),
                                          company.connectionString(), false);
  EXPECT_EQ(first.rows[0].cells, (std::vector<std::string>{"Office", "ก ข"}));
  EXPECT_THROW(readPickerList(employees("KT7VNothing"), company.connectionString(), false), Error);
}

TEST(PickerList, AsksForTheKeyOnce) {
  PickerRequest request = employees("T WHERE A=#$2026-01-31#$");
  EXPECT_EQ(pickerStatement(request),
            "SELECT TEmpCostGroup,TEmpFirstName,TEmpCode FROM T WHERE A='2026-01-31'");
  request.columns = "tempcode,TEmpNo";
  EXPECT_EQ(pickerStatement(request), "SELECT tempcode,TEmpNo FROM T WHERE A='2026-01-31'");
}

}  // namespace
}  // namespace kt7::screens
