#include "base/text.h"
#include "reads_back.h"
#include "roles/texts/date_text.h"

namespace kt7::fuzz {

namespace {

void isReadAsWritten(Date date) {
  require(Date::fromIsoText(date.isoDateTimeText()).isoDateTimeText() == date.isoDateTimeText(),
          "a moment reads as it was written", date.isoDateTimeText());
  Date day;
  require(roles::readDayMonthYear(date.shortText(), day) && day == date.datePart(),
          "a day reads as it was written", date.shortText());
  const auto moved = unlessRefused([&] { return date.plusDays(1); });
  require(!moved || (date < *moved && moved->plusDays(-1) == date), "a day later and back");
  require(!moved || moved->weekday() == (date.weekday() + 1) % 7, "weekdays follow each other");
}

}  // namespace

void enter(std::string_view given) {
  const std::string text(given);
  Date date;
  if (Date::tryFromIsoText(text, date)) isReadAsWritten(date);
  if (roles::readDayMonthYear(text, date)) isReadAsWritten(date);
  if (const auto read = unlessRefused([&] { return Value(text).toDate(); })) isReadAsWritten(*read);
  const std::string resolved = roles::resolveDateMarkers(text);
  require(roles::resolveDateMarkers(resolved) == resolved, "markers are resolved once", resolved);
  readsBack(schema::ColumnType::Date, text);
  readsBack(schema::ColumnType::Moment, text);
}

}  // namespace kt7::fuzz
