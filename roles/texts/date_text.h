#pragma once

#include <string>
#include <string_view>

#include <kt7/date.h>

namespace kt7::roles {

/// Reads "day/month/year" of the common era, years 100 to 9999, blanks around it ignored.
bool readDayMonthYear(std::string_view text, Date& out);

/// True for the days that stand for "not entered": 1899-12-30 and 3333-03-03, at any time of day.
bool isBlankDay(Date date);

/// "yyyy-mm-dd", "" for a blank day.
std::string dayForSql(Date date);
/// "yyyy-mm-dd hh:mm:ss", "" for a blank day.
std::string momentForSql(Date date);

/// Every "#$" date "#$" becomes the quoted date or date and time, "#$#$" becomes NULL. A "#$" that
/// opens no date stays as it is, like everything else: a text between quotes may hold anything.
std::string resolveDateMarkers(const std::string& sql);

}  // namespace kt7::roles
