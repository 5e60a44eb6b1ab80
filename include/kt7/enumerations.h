#pragma once

#include <cstdint>

namespace kt7 {

/// What a weekday of a work period is paid as; stored in TWPTPayType.
enum KT7PayType : std::int32_t { KT7PayTypeNormal = 0, KT7PayTypeHoliday = 1 };

/// The layout of the employee picker.
enum KT7EmployeeSortType : std::int32_t {
  KT7EmployeeSortTypeCode = 0,
  KT7EmployeeSortTypeDivName = 1,
  KT7EmployeeSortTypeCost = 2
};

/// Published for hosts; no operation takes or returns it.
enum KT7HolidayType : std::int32_t { KT7HolidayTypeSun = 0, KT7HolidayTypeHoliday = 1 };

/// Which right a permission filter asks for.
enum KT7HRAccessLevel : std::int32_t {
  KT7HRAccessLevelUser = 0,
  KT7HRAccessLevelWelfare = 1,
  KT7HRAccessLevelAdmin = 2
};

}  // namespace kt7
