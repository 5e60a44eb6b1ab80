#pragma once

#include <functional>
#include <string>

#include <kt7/contract/platform.h>
#include <kt7/export.h>

namespace kt7::roles {

/// The keyed hash of a text, as raw bytes: HMAC-SHA-256 in the reference host. The roles have no
/// cryptography of their own.
using KeyedHash = std::function<std::string(const std::string& text, const std::string& key)>;

/// Numbers, rounding, dates and texts. Today's date comes from the platform; platform and hash
/// outlive it. Without a hash EncodeWithKey is a failed collaborator call.
class KT7_API StandardUtilityObject : public UtilityObject {
 public:
  StandardUtilityObject(Platform& platform, const KeyedHash& hash)
      : platform_(platform), hash_(hash) {}

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
  const KeyedHash& hash_;
};

}  // namespace kt7::roles
