#include "roles/texts/date_text.h"

#include <algorithm>

#include "base/text.h"

namespace kt7::roles {

namespace {

constexpr std::string_view kMarker = "#$";
constexpr std::size_t kDayWidth = 10;  // yyyy-mm-dd

/// Where a statement stands between quotes, asked from its front to its end. A doubled quote ends a
/// text and begins the next.
class QuotedTexts {
 public:
  /// The statement must outlive the object. One with a quote too many has no texts that could be
  /// told from the rest.
  explicit QuotedTexts(std::string_view sql)
      : sql_(sql), pair_(std::count(sql.begin(), sql.end(), '\'') % 2 == 0) {}

  bool holds(std::size_t place) {
    const auto passed = sql_.substr(at_, place - at_);
    inside_ = inside_ != (std::count(passed.begin(), passed.end(), '\'') % 2 != 0);
    at_ = place;
    return pair_ && inside_;
  }

 private:
  std::string_view sql_;
  bool pair_;
  bool inside_ = false;
  std::size_t at_ = 0;
};

/// The literal of what stands between two markers; false where that is no date.
bool appendDateLiteral(std::string& sql, std::string_view date) {
  if (date.empty()) {
    sql += "NULL";
    return true;
  }
  Date moment;
  if (!Date::tryFromIsoText(date, moment)) return false;
  sql += '\'';
  sql += date.size() == kDayWidth ? moment.isoDateText() : moment.isoDateTimeText();
  sql += '\'';
  return true;
}

}  // namespace

bool readDayMonthYear(std::string_view text, Date& out) {
  DigitReader reader(trimmedBlanks(text));
  int day = 0, month = 0, year = 0;
  if (!(reader.numberUpTo(2, day) && reader.sign('/') && reader.numberUpTo(2, month) &&
        reader.sign('/') && reader.numberUpTo(4, year) && reader.atEnd() &&
        Date::isCalendarDay(year, month, day))) {
    return false;
  }
  out = Date::fromYmd(year, month, day);
  return true;
}

bool isBlankDay(Date date) {
  static const std::int32_t kNotSet = notSetDate().dayNumber();
  const std::int32_t day = date.dayNumber();
  return day == 0 || day == kNotSet;
}

std::string dayForSql(Date date) { return isBlankDay(date) ? std::string() : date.isoDateText(); }

std::string momentForSql(Date date) {
  return isBlankDay(date) ? std::string() : date.isoDateTimeText();
}

std::string resolveDateMarkers(const std::string& sql) {
  std::size_t open = sql.find(kMarker);
  if (open == std::string::npos) return sql;
  std::string out;
  out.reserve(sql.size());
  QuotedTexts quoted(sql);
  std::size_t copied = 0;
  while (open != std::string::npos) {
    const std::size_t inside = open + kMarker.size();
    if (quoted.holds(open)) {
      open = sql.find(kMarker, inside);
      continue;
    }
    const std::size_t close = sql.find(kMarker, inside);
    if (close == std::string::npos) break;
    out.append(sql, copied, open - copied);
    copied = open;
    if (appendDateLiteral(out, std::string_view(sql).substr(inside, close - inside))) {
      copied = close + kMarker.size();
      open = sql.find(kMarker, copied);
    } else {
      open = close;
    }
  }
  return out.append(sql, copied);
}

}  // namespace kt7::roles
