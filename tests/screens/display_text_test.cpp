#include "fronts/common/display_text.h"

#include <gtest/gtest.h>

namespace kt7::screens {
namespace {

TEST(DisplayText, CountsCellsAsATerminalDoes) {
  struct Case {
    const char* text;
    int width;
  };
  for (const Case& each :
       {Case{"", 0}, Case{"E0001", 5}, Case{"ชื่อ", 2}, Case{"นามสกุล", 6}, Case{"เลขที่พนักงาน", 10},
        Case{"น้ำ", 2}, Case{"日本", 4}, Case{"e\xCC\x81", 1}}) {
    EXPECT_EQ(displayWidth(each.text), each.width) << each.text;
  }
}

TEST(DisplayText, FitsIntoExactlyTheCells) {
  struct Case {
    const char* text;
    int width;
    const char* shown;
  };
  for (const Case& each : {Case{"ชื่อ", 4, "ชื่อ  "}, Case{"ชื่อ", 2, "ชื่อ"}, Case{"นามสกุล", 4, "นาม…"},
                           Case{"ที่นี่ที่", 2, "ที่…"}, Case{"日本", 3, "日…"}, Case{"日本", 2, "… "},
                           Case{"ab", 1, "…"}, Case{"ab", 0, ""}, Case{"ab", -3, ""}}) {
    EXPECT_EQ(fitted(each.text, each.width), each.shown) << each.text << " in " << each.width;
  }
}

TEST(DisplayText, MakesOneLineOfAnything) {
  EXPECT_EQ(oneLine("a\nb\tc\x1B[2J"), "a b c [2J");
  EXPECT_EQ(oneLine("a\x7F\u009B\u202E\u2067\u2028ก\u200Bข"), "a     ก\u200Bข");
  EXPECT_EQ(oneLine("ก\xE0\xB8"), "ก\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(DisplayText, BreaksLinesAtBlanksAndInsideLongWords) {
  EXPECT_EQ(wrapped("one two three", 8), (std::vector<std::string>{"one two", "three"}));
  EXPECT_EQ(wrapped("กี่กี่กี่", 2), (std::vector<std::string>{"กี่กี่", "กี่"}));
  EXPECT_EQ(wrapped("a\n\nb", 9), (std::vector<std::string>{"a", "", "b"}));
}

TEST(DisplayText, ComparesWithoutRegardToCaseAndComposition) {
  EXPECT_EQ(searchForm("OFFICE"), searchForm("office"));
  EXPECT_EQ(searchForm("น้ำ"), searchForm("น้\u0E4D\u0E32"));
  EXPECT_EQ(searchForm("É"), searchForm("e\u0301"));
  EXPECT_NE(searchForm("ปี"), searchForm("ปิ"));
}

TEST(DisplayText, ErasesAMarkBeforeItsLetter) {
  std::string text = "aที่";
  for (const char* left : {"aที", "aท", "a", "", ""}) {
    eraseLastCharacter(text);
    EXPECT_EQ(text, left);
  }
}

}  // namespace
}  // namespace kt7::screens
