#include <gtest/gtest.h>

#include <cmath>

#include <kt7/currency.h>
#include <kt7/date.h>
#include <kt7/error.h>
#include <kt7/value.h>
#include "base/arithmetic.h"
#include "base/number_text.h"
#include "base/text.h"
#include "support/raises.h"

namespace kt7 {
namespace {

using test::raised;

TEST(Arithmetic, RoundsToWholeNumbersWithTiesToEvenAndRaisesOutsideTheRange) {
  EXPECT_EQ(toInt16(7.5), 8);
  EXPECT_EQ(toInt16(6.5), 6);
  EXPECT_EQ(toInt16(-0.5), 0);
  EXPECT_EQ(toInt16(32767.49), 32767);
  EXPECT_EQ(toInt16(-32768.5), -32768);
  EXPECT_EQ(raised([] { toInt16(32767.5); }), "overflow");
  EXPECT_EQ(raised([] { toInt32(2147483647.5); }), "overflow");
  EXPECT_EQ(raised([] { toInt16(std::nan("")); }), "overflow");
  EXPECT_EQ(multiply16(-256, 128), -32768);
  EXPECT_EQ(raised([] { multiply16(256, 128); }), "overflow");
  EXPECT_EQ(raised([] { add16(32767, 1); }), "overflow");
  EXPECT_EQ(raised([] { divide(0, 0); }), "division by zero");
  EXPECT_EQ(raised([] { divide(1e308, 1e-10); }), "overflow");
  EXPECT_EQ(raised([] { toSingle(1e39); }), "overflow");
}

TEST(Currency, ComesFromADoubleAtTheNearestTenThousandthTiesToEven) {
  const struct {
    double amount;
    std::int64_t count;
  } cases[] = {
      {0.00005, 1},                       // the double lies above the tie
      {0.5 / 16, 312},  {1.5 / 16, 938},  // exact ties 312.5 and 937.5
      {-0.03125, -312}, {61728.39455, 617283945}, {922337203685477.5, 9223372036854775000}};
  for (const auto& [amount, count] : cases) {
    EXPECT_EQ(Currency::fromDouble(amount).tenThousandths(), count) << amount;
  }
  EXPECT_EQ(raised([] { Currency::fromDouble(1e15); }), "overflow");
}

TEST(Currency, ReadsAndWritesDecimalText) {
  const struct {
    const char* text;
    const char* shown;
  } cases[] = {{"60000", "60000.0000"},
               {"-12.5", "-12.5000"},
               {"+.25", "0.2500"},
               {"1.00005", "1.0000"},
               {"1.00015", "1.0002"},
               {"-0.00005001", "-0.0001"},
               {"-0.00001", "0.0000"},
               {"7.", "7.0000"},
               {"922337203685477.5807", "922337203685477.5807"},
               {"-922337203685477.5808", "-922337203685477.5808"}};
  for (const auto& [text, shown] : cases) EXPECT_EQ(Currency::fromText(text).toText(), shown);
  for (const char* text : {"", "-", "1e3", "1,000", "1.2.3", " 1", "0x10"}) {
    EXPECT_EQ(raised([&] { Currency::fromText(text); }), "type mismatch") << text;
  }
  EXPECT_EQ(raised([] { Currency::fromText("922337203685477.5808"); }), "overflow");
}

TEST(Currency, RaisesWhenAResultLeavesTheRange) {
  const Currency most = Currency::fromTenThousandths(INT64_MAX);
  const Currency least = Currency::fromTenThousandths(INT64_MIN);
  EXPECT_EQ(raised([&] { most + Currency::fromTenThousandths(1); }), "overflow");
  EXPECT_EQ(raised([&] { least - Currency::fromTenThousandths(1); }), "overflow");
  EXPECT_EQ(raised([&] { 2 * most; }), "overflow");
  EXPECT_EQ(raised([&] { -least; }), "overflow");
}

TEST(Date, CountsEveryDayOfTheCalendar) {
  EXPECT_EQ(Date::fromYmd(1899, 12, 30).serial(), 0);
  EXPECT_EQ(Date::fromYmd(100, 1, 1).serial(), Date::kFirstDay);
  EXPECT_EQ(Date::fromYmd(9999, 12, 31).serial(), Date::kLastDay);
  for (std::int32_t number = Date::kFirstDay; number <= Date::kLastDay; number += 97) {
    const Date date = Date::fromSerial(number);
    ASSERT_EQ(Date::fromYmd(date.year(), date.month(), date.day()).dayNumber(), number);
    ASSERT_EQ(date.weekday(), ((number % 7) + 7 + 6) % 7);  // day 0 was a Saturday
  }
  EXPECT_FALSE(Date::isCalendarDay(2100, 2, 29));
  EXPECT_EQ(raised([] { Date::fromYmd(2023, 2, 29); }), "overflow");
  EXPECT_EQ(raised([] { Date::fromSerial(Date::kLastDay + 1.0); }), "overflow");
}

TEST(Date, KeepsTheTimeOfDayAlsoBeforeDayZero) {
  const Date early = Date::fromYmdHms(1899, 12, 29, 6, 0, 0);
  EXPECT_DOUBLE_EQ(early.serial(), -1.25);
  EXPECT_EQ(early.isoDateTimeText(), "1899-12-29 06:00:00");
  EXPECT_LT(early, Date::fromYmdHms(1899, 12, 29, 7, 0, 0));  // -1.25 before -1.29...
  EXPECT_EQ(early.plusDays(1).serial(), 0.25);
  EXPECT_EQ(Date::fromSerial(0.999999999).isoDateTimeText(), "1899-12-31 00:00:00");
}

TEST(Date, MovesByMonthsClippingToTheLastDay) {
  const struct {
    const char* from;
    int months;
    const char* to;
  } cases[] = {{"2020-01-31", 1, "2020-02-29"},  {"2021-01-31", 1, "2021-02-28"},
               {"2020-02-29", 12, "2021-02-28"}, {"2020-03-31", -1, "2020-02-29"},
               {"2020-01-15", -1, "2019-12-15"}, {"2016-12-31", 2, "2017-02-28"}};
  for (const auto& [from, months, to] : cases) {
    EXPECT_EQ(Date::fromIsoText(from).plusMonths(months).isoDateText(), to) << from;
  }
  EXPECT_EQ(raised([] { Date::fromIsoText("9999-12-01").plusMonths(1); }), "overflow");
  EXPECT_EQ(raised([] { Date::fromIsoText("0100-01-31").plusMonths(-1); }), "overflow");
}

TEST(Date, ReadsIsoTextOnly) {
  EXPECT_EQ(Date::fromIsoText("2026-01-31T23:59:58").isoDateTimeText(), "2026-01-31 23:59:58");
  EXPECT_EQ(Date::fromIsoText("2026-01-31 08:15").isoDateTimeText(), "2026-01-31 08:15:00");
  EXPECT_EQ(Date::fromIsoText("2026-01-31").shortText(), "31/1/2026");
  for (const char* text : {"", "2026-1-31", "2026-02-30", "31/1/2026", "2026-01-31T24:00",
                           "2026-01-31x", "2026-01-31T10:00:00Z", "0099-01-01"}) {
    EXPECT_EQ(raised([&] { Date::fromIsoText(text); }), "type mismatch") << text;
  }
}

TEST(Value, ConvertsByTheAutomationRules) {
  EXPECT_EQ(Value("  7.5 ").toInt16(), 8);
  EXPECT_EQ(Value(true).toDouble(), -1);
  EXPECT_EQ(Value(Currency::fromText("12.3400")).joinedText(), "12.34");
  EXPECT_EQ(Value(Date::fromIsoText("2026-03-01")).joinedText(), "1/3/2026");
  EXPECT_EQ(Value("2026-03-01").toDate(), Date::fromYmd(2026, 3, 1));
  EXPECT_EQ(Value("1/3/2026").toDate(), Date::fromYmd(2026, 3, 1));
  EXPECT_EQ(Value(std::int64_t{922337203685477}).toCurrency().toText(), "922337203685477.0000");
  EXPECT_EQ(Value("-922,337,203,685,477.58075").toCurrency().toText(), "-922337203685477.5808");
  EXPECT_EQ(Value("(1.5e2)").toCurrency().toText(), "-150.0000");
  EXPECT_EQ(Value().joinedText(), "");
  EXPECT_EQ(raised([] { Value().toInt16(); }), "type mismatch");
  EXPECT_EQ(raised([] { Value(40000.0).toInt16(); }), "overflow");
  EXPECT_EQ(raised([] { Value().toText(); }), "type mismatch");
  EXPECT_EQ(raised([] { Value("soon").toDate(); }), "type mismatch");
}

TEST(Value, ReadsATextAsANumber) {
  const std::pair<const char*, double> cases[] = {{"1,000", 1000},
                                                  {"-1,234,567.89", -1234567.89},
                                                  {" +3\t", 3},
                                                  {"- 3", -3},
                                                  {"3 -", -3},
                                                  {"( 3 )", -3},
                                                  {"1.5E+2", 150},
                                                  {".5", 0.5},
                                                  {"&H1f", 31},
                                                  {"-&hFF", -255},
                                                  {"&O17", 15},
                                                  {"1e-400", 0},
                                                  {"&HFFFFFFFF", 4294967295.0}};
  for (const auto& [text, number] : cases) EXPECT_EQ(Value(text).toDouble(), number) << text;
  for (const char* text :
       {"",    " ",  "x",    "nan", "inf", "1 2", "1,",  ",1",   "1.2,3", "--3",
        "-3-", "()", "(-3)", "&",   "&H",  "&HG", "&O8", "& H1", "0x10",  "1e"}) {
    EXPECT_EQ(raised([&] { Value(text).toDouble(); }), "type mismatch") << text;
    EXPECT_EQ(raised([&] { Value(text).toCurrency(); }), "type mismatch") << text;
  }
  for (const char* text : {"1e400", "&H10000000000000000"}) {
    EXPECT_EQ(raised([&] { Value(text).toDouble(); }), "overflow") << text;
  }
}

TEST(Value, JoinsADoubleWithItsFifteenDigits) {
  const std::pair<double, const char*> cases[] = {{0.1 + 0.2, "0.3"},
                                                  {1.0 / 3, "0.333333333333333"},
                                                  {123456789012345, "123456789012345"},
                                                  {1e20, "1E+20"},
                                                  {-2.5e-7, "-2.5E-07"},
                                                  {-0.0, "0"},
                                                  {100000.0, "100000"},
                                                  {0.0001, "0.0001"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(Value(value).joinedText(), text);
}

TEST(NumberText, ASingleWidensToTheNumberItShows) {
  for (const double shown : {104.3, -0.1, 16777216.0, 0.0, 3.4e38, 1e-45}) {
    EXPECT_EQ(widened(static_cast<float>(shown)), shown);
  }
}

TEST(Text, CutsByCharactersOfSixteenBitsAndNeverThroughOne) {
  EXPECT_EQ(firstCharacters("กขค", 2), "กข");
  EXPECT_EQ(firstCharacters("a😀b", 2), "a");  // a pair of units does not fit one
  EXPECT_EQ(firstCharacters("a😀b", 3), "a😀");
  EXPECT_EQ(firstCharacters("abc", 9), "abc");
}

TEST(Text, SplitsAndReplacesEveryOccurrence) {
  EXPECT_EQ(split("", '='), std::vector<std::string>{""});
  EXPECT_EQ(split("a==b", '='), (std::vector<std::string>{"a", "", "b"}));
  EXPECT_EQ(replaceAll("TEmTCode=TEmTCode", "TEmTCode", "TEMPTEMTCODE"),
            "TEMPTEMTCODE=TEMPTEMTCODE");
  EXPECT_EQ(replaceAll("aaa", "aa", "a"), "aa");
}

}  // namespace
}  // namespace kt7
