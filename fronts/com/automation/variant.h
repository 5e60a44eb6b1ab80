#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <type_traits>
#include <utility>

#include <kt7/value.h>

namespace kt7::automation {

using Microsoft::WRL::ComPtr;

/// A VARIANT that clears itself. Arguments of late-bound calls convert to it silently.
class Variant {
 public:
  Variant() { VariantInit(&raw_); }
  Variant(bool value);
  Variant(std::int16_t value);
  Variant(std::int32_t value);
  Variant(long value) : Variant(static_cast<std::int32_t>(value)) {}
  Variant(float value);
  Variant(double value);
  Variant(Currency value);
  Variant(Date value);
  Variant(const std::string& utf8);
  Variant(const char* utf8) : Variant(std::string(utf8)) {}
  Variant(IDispatch* object);
  explicit Variant(const Value& value);
  /// A copy; by-reference contents are resolved.
  explicit Variant(const VARIANT& other);
  Variant(Variant&& other) noexcept : raw_(other.raw_) { VariantInit(&other.raw_); }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(&raw_); }

  const VARIANT& raw() const { return raw_; }
  /// Where a callee may store its answer.
  VARIANT* out();
  /// Gives the contents away; the variant is empty afterwards.
  VARIANT release();

 private:
  VARIANT raw_;
};

/// The value of a variant: by-reference contents are resolved, an object answers its default
/// property, DECIMAL is money where money holds it and a double elsewhere. Empty, null and missing
/// are null. Type mismatch for arrays and for an object without a default property.
Value toValue(const VARIANT& variant);

/// True for an argument that was left out: none at all, or the platform's "missing" mark.
bool isMissing(const VARIANT* variant);

/// The object in a variant, by reference or not, which may be known by another interface; null for
/// nothing, empty and null. Type mismatch for anything else.
ComPtr<IDispatch> objectIn(const VARIANT& variant);

/// The variant as T by the automation rules; empty is "", 0 or false, null a type mismatch. A text
/// is a date in ISO form or in the user's own.
template <typename T>
T fromVariant(const VARIANT& variant);

}  // namespace kt7::automation
