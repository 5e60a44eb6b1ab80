#include "profile/salary_rules.h"

namespace kt7::profile {

bool isPaidByTheDay(std::int16_t calculateType) {
  return calculateType == kDaily || calculateType == kHourly || calculateType == kHalfMonthly ||
         calculateType == kByQuantity;
}

bool workedPartOfPeriod(Date signDate, Date resignDate, Date startDate, Date endDate) {
  const Date notSet = notSetDate();
  const bool startedLate = startDate != notSet && signDate != notSet && signDate > startDate;
  const bool leftEarly =
      endDate != notSet && resignDate != notSet && resignDate != Date() && resignDate < endDate;
  return startedLate || leftEarly;
}

}  // namespace kt7::profile
