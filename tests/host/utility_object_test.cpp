#include <kt7/roles/utility_object.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include <kt7/error.h>
#include <kt7/host/platform.h>
#include "host/roles/permission_token.h"

namespace kt7::host {
namespace {

class UtilityObjectTest : public ::testing::Test {
 protected:
  HostPlatform platform_{Date::fromYmdHms(2024, 2, 29, 23, 59, 30)};
  const roles::KeyedHash hash_ = keyedHash;
  roles::StandardUtilityObject utility_{platform_, hash_};
};

ErrorKind kindOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const Error& error) {
    return error.kind();
  }
  ADD_FAILURE() << "no error";
  return ErrorKind::NotImplemented;
}

TEST_F(UtilityObjectTest, TextToNumber) {
  const std::pair<const char*, double> cases[] = {
      {"", 0},
      {"  ", 0},
      {"12", 12},
      {" \t12.5\r\n", 12.5},
      {"-3", -3},
      {"+3", 3},
      {".5", 0.5},
      {"-.5", -0.5},
      {"5.", 5},
      {"1,234", 1234},
      {"-1,234,567.89", -1234567.89},
      {"1e3", 1000},
      {"2.5E-1", 0.25},
      {"1,0e+2", 1000},
      {"0.1", 0.1},
      {"1e-400", 0},
      {"0.0e999", 0},
      {"007", 7},
      {"9007199254740993", 9007199254740992.0},
  };
  for (const auto& [text, number] : cases) {
    EXPECT_EQ(utility_.TextToNumber(text), number) << "'" << text << "'";
  }
  for (const char* text : {"-",   ".",         ",",    ",5",  "1,",    "1,,2",  "1.2,3",
                           "1 2", "- 3",       "--3",  "+-3", "1e",    "e5",    "nan",
                           "inf", "-infinity", "0x10", "1p3", "12abc", "1.2.3", "\xE0\xB9\x91"}) {
    EXPECT_EQ(utility_.TextToNumber(text), 0) << "'" << text << "'";
  }
  EXPECT_FALSE(std::signbit(utility_.TextToNumber("-0")));
  EXPECT_EQ(kindOf([&] { utility_.TextToNumber("1e400"); }), ErrorKind::Overflow);
  EXPECT_EQ(kindOf([&] { utility_.TextToNumber(std::string(400, '9')); }), ErrorKind::Overflow);
}

TEST_F(UtilityObjectTest, TextToIntegerRoundsToEvenAndOverflows) {
  const std::pair<const char*, int> cases[] = {
      {"2.5", 2}, {"3.5", 4},      {"-0.5", 0},        {"", 0},
      {"x", 0},   {"1,024", 1024}, {"32767.4", 32767}, {"-32768.5", -32768}};
  for (const auto& [text, number] : cases) {
    EXPECT_EQ(utility_.TextToInteger(text, true), number) << "'" << text << "'";
  }
  for (const char* text : {"32767.5", "-32769", "99999", "1e400"}) {
    EXPECT_EQ(kindOf([&] { utility_.TextToInteger(text, true); }), ErrorKind::Overflow) << text;
  }
}

TEST_F(UtilityObjectTest, RoundingRolesTakeTheirModes) {
  EXPECT_EQ(utility_.RoundToDigits(1.005, 2), 1.01);
  EXPECT_EQ(utility_.RoundValue(2.5, 0, 0), 2);
  EXPECT_EQ(utility_.RoundValue(2.1, 0, 3), 3);
  EXPECT_EQ(kindOf([&] { utility_.RoundValue(1, 0, 7); }), ErrorKind::Collaborator);
}

TEST_F(UtilityObjectTest, ReadsDayMonthYear) {
  const std::pair<const char*, const char*> valid[] = {{"31/1/2026", "2026-01-31"},
                                                       {"01/02/2026", "2026-02-01"},
                                                       {" 29/2/2024 ", "2024-02-29"},
                                                       {"1/1/100", "0100-01-01"},
                                                       {"31/12/9999", "9999-12-31"}};
  for (const auto& [text, iso] : valid) {
    EXPECT_TRUE(utility_.IsValidDateText(text)) << text;
    EXPECT_EQ(utility_.TextToDate(text), Date::fromIsoText(iso)) << text;
  }
  for (const char* text :
       {"", "31/4/2026", "29/2/2025", "0/1/2026", "-1/1/2026", "1/13/2026", "1/0/2026", "1/1/99",
        "1/1/10000", "2026-01-31", "1/1", "1/1/2026 x", "1-1-2026", "1/1/2026/1"}) {
    EXPECT_FALSE(utility_.IsValidDateText(text)) << text;
    EXPECT_EQ(kindOf([&] { utility_.TextToDate(text); }), ErrorKind::TypeMismatch) << text;
  }
}

TEST_F(UtilityObjectTest, DateTextsForSql) {
  const Date evening = Date::fromYmdHms(2026, 1, 31, 18, 5, 9);
  EXPECT_EQ(utility_.SqlDateText(evening), "2026-01-31");
  EXPECT_EQ(utility_.SqlShortDateText(evening), "2026-01-31");
  EXPECT_EQ(utility_.SqlDateTimeText(evening, 0), "2026-01-31 18:05:09");
  EXPECT_EQ(kindOf([&] { utility_.SqlDateTimeText(evening, 1); }), ErrorKind::Collaborator);
  EXPECT_FALSE(utility_.IsBlankDate(evening));
  EXPECT_FALSE(utility_.IsBlankDate(Date::fromYmd(1899, 12, 29)));
  EXPECT_FALSE(utility_.IsBlankDate(Date::fromYmd(3333, 3, 4)));
  for (const Date blank :
       {Date(), Date::fromSerial(0.75), notSetDate(), Date::fromYmdHms(3333, 3, 3, 8, 0, 0)}) {
    EXPECT_TRUE(utility_.IsBlankDate(blank)) << blank.isoDateTimeText();
    EXPECT_EQ(utility_.SqlDateText(blank) + utility_.SqlShortDateText(blank) +
                  utility_.SqlDateTimeText(blank, 0),
              "")
        << blank.isoDateTimeText();
  }
}

TEST_F(UtilityObjectTest, ClockAndMonths) {
  EXPECT_EQ(utility_.CurrentYear(), 2024);
  EXPECT_EQ(utility_.FallbackDate(), Date::fromYmd(2024, 2, 29));
  EXPECT_EQ(utility_.AddMonths(Date::fromYmd(2024, 3, 31), -1), Date::fromYmd(2024, 2, 29));
  EXPECT_EQ(utility_.AddMonths(Date::fromYmd(2024, 2, 29), 12), Date::fromYmd(2025, 2, 28));
  EXPECT_EQ(utility_.MonthNumberText(7, 0, 0), "7");
  platform_.setNow(Date::fromYmd(2030, 1, 1));
  EXPECT_EQ(utility_.CurrentYear(), 2030);
  platform_.setNow(std::nullopt);
  EXPECT_GE(utility_.CurrentYear(), 2024);
  EXPECT_LT(utility_.CurrentYear(), 2100);
}

TEST_F(UtilityObjectTest, TokensAreKeyedHashesInAnAddressAlphabet) {
  const auto token = [&](const char* text, const char* key) {
    return utility_.EncodeToken(utility_.EncodeWithKey(text, key));
  };
  // Published test vector of HMAC-SHA-256.
  EXPECT_EQ(token("what do ya want for nothing?", "Jefe"),
            "W9zBRr9gdU5qBCQmCJV1x1oAPwidJzmDnexYuWTsOEM");
  EXPECT_EQ(token("7#M1", "rk81736"), "_gjj0B92Wqr8kSVRFiboR5o8XeBUSPmQoYd6tOxCeZU");
  EXPECT_EQ(token("", ""), "thNnmggU2ex3L5XXeMNfxf8Wl8STcVZTxscSFEKSxa0");
  EXPECT_EQ(utility_.EncodeToken(""), "");
  EXPECT_EQ(utility_.EncodeToken("f"), "Zg");
  EXPECT_EQ(utility_.EncodeToken("fo"), "Zm8");
  EXPECT_EQ(utility_.EncodeToken("\xFB\xFF\xFE"), "-__-");
}

}  // namespace
}  // namespace kt7::host
