#pragma once

#include <kt7/contract/platform.h>

namespace kt7::host {

/// Numbers, rounding, dates and texts of the reference host; today's date comes from the platform,
/// which outlives it.
class HostUtilityObject : public UtilityObject {
 public:
  explicit HostUtilityObject(Platform& platform) : platform_(platform) {}

  double TextToNumber(const std::string& text) override;
  std::int16_t TextToInteger(const std::string& text, bool flag) override;
  double RoundToDigits(double value, std::int16_t digits) override;
  double RoundValue(double value, std::int16_t digits, std::int16_t mode) override;

  std::string SqlDateText(Date date) override;
  std::string SqlShortDateText(Date date) override;
  std::string SqlDateTimeText(Date date, std::int16_t form) override;
  bool IsBlankDate(Date date) override;
  bool IsValidDateText(const std::string& text) override;
  Date TextToDate(const std::string& text) override;
  Date AddMonths(Date date, std::int16_t count) override;
  std::int16_t CurrentYear() override;
  std::string MonthNumberText(std::int16_t month, std::int16_t form,
                              std::int16_t language) override;
  Date FallbackDate() override;

  std::string EncodeWithKey(const std::string& text, const std::string& key) override;
  std::string EncodeToken(const std::string& text) override;

 private:
  Platform& platform_;
};

}  // namespace kt7::host
