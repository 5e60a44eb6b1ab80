#include "fronts/com/automation/variant.h"

#include <limits>

#include <kt7/error.h>
#include "base/arithmetic.h"
#include "base/number_text.h"
#include "fronts/com/automation/text.h"

namespace kt7::automation {

namespace {

/// The platform's headers leave out the const of what its functions only read.
template <typename T>
T* readOnly(const T& what) {
  return const_cast<T*>(&what);
}

VARIANT ofType(VARTYPE type) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = type;
  return variant;
}

VARIANT fromInt64(std::int64_t value) {
  VARIANT variant = ofType(VT_I4);
  if (value >= std::numeric_limits<std::int32_t>::min() &&
      value <= std::numeric_limits<std::int32_t>::max()) {
    variant.lVal = static_cast<LONG>(value);
    return variant;
  }
  // Script hosts do not know 64-bit whole numbers.
  VarDecFromI8(value, &variant.decVal);
  variant.vt = VT_DECIMAL;
  return variant;
}

struct Maker {
  VARIANT operator()(Null) const { return ofType(VT_NULL); }
  VARIANT operator()(bool value) const { return Variant(value).release(); }
  VARIANT operator()(std::int16_t value) const { return Variant(value).release(); }
  VARIANT operator()(std::int32_t value) const { return Variant(value).release(); }
  VARIANT operator()(std::int64_t value) const { return fromInt64(value); }
  VARIANT operator()(double value) const { return Variant(value).release(); }
  VARIANT operator()(Currency value) const { return Variant(value).release(); }
  VARIANT operator()(Date value) const { return Variant(value).release(); }
  VARIANT operator()(const std::string& value) const { return Variant(value).release(); }
};

Value fromDecimal(const DECIMAL& decimal) {
  CY money;
  DECIMAL back;
  if (SUCCEEDED(VarCyFromDec(readOnly(decimal), &money)) && SUCCEEDED(VarDecFromCy(money, &back)) &&
      VarDecCmp(readOnly(decimal), &back) == VARCMP_EQ) {
    return Currency::fromTenThousandths(money.int64);
  }
  double number = 0;
  if (FAILED(VarR8FromDec(readOnly(decimal), &number))) raiseOverflow();
  return number;
}

Value fromUnsigned(std::uint64_t number) {
  if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    raiseOverflow();
  }
  return static_cast<std::int64_t>(number);
}

Value defaultProperty(IDispatch* object) {
  DISPPARAMS none{};
  Variant answer;
  if (object == nullptr ||
      FAILED(object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                            DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none, answer.out(), nullptr,
                            nullptr)) ||
      answer.raw().vt == VT_DISPATCH) {
    raiseTypeMismatch("an object where a value is wanted");
  }
  return toValue(answer.raw());
}

Date dateOf(const Value& value) {
  const auto* text = std::get_if<std::string>(&value.storage());
  if (text == nullptr) return value.toDate();
  Date date;
  if (Date::tryFromIsoText(*text, date)) return date;
  DATE serial = 0;
  if (FAILED(VarDateFromStr(toWide(*text).data(), LOCALE_USER_DEFAULT, 0, &serial))) {
    raiseTypeMismatch("'" + *text + "' is not a date");
  }
  return Date::fromSerial(serial);
}

ComPtr<IDispatch> dispatchOf(IUnknown* object) {
  ComPtr<IDispatch> dispatch;
  if (object != nullptr && FAILED(object->QueryInterface(IID_PPV_ARGS(&dispatch)))) {
    raiseTypeMismatch("the object cannot be called by name");
  }
  return dispatch;
}

bool isEmpty(const VARIANT& variant) {
  if (variant.vt == (VT_BYREF | VT_VARIANT)) return isEmpty(*variant.pvarVal);
  return variant.vt == VT_EMPTY || isMissing(&variant);
}

}  // namespace

Variant::Variant(bool value) : raw_(ofType(VT_BOOL)) {
  raw_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}
Variant::Variant(std::int16_t value) : raw_(ofType(VT_I2)) { raw_.iVal = value; }
Variant::Variant(std::int32_t value) : raw_(ofType(VT_I4)) { raw_.lVal = value; }
Variant::Variant(float value) : raw_(ofType(VT_R4)) { raw_.fltVal = value; }
Variant::Variant(double value) : raw_(ofType(VT_R8)) { raw_.dblVal = value; }
Variant::Variant(Currency value) : raw_(ofType(VT_CY)) {
  raw_.cyVal.int64 = value.tenThousandths();
}
Variant::Variant(Date value) : raw_(ofType(VT_DATE)) { raw_.date = value.serial(); }
Variant::Variant(const std::string& utf8) : raw_(ofType(VT_BSTR)) { raw_.bstrVal = newBstr(utf8); }
Variant::Variant(IDispatch* object) : raw_(ofType(VT_DISPATCH)) {
  raw_.pdispVal = object;
  if (object != nullptr) object->AddRef();
}
Variant::Variant(const Value& value) : raw_(std::visit(Maker(), value.storage())) {}
Variant::Variant(const VARIANT& other) : Variant() {
  const VARIANT* named = &other;
  // A variable that refers to another one, as script hosts pass an element of theirs.
  while (named->vt == (VT_BYREF | VT_VARIANT)) named = named->pvarVal;
  if (FAILED(VariantCopyInd(&raw_, readOnly(*named)))) raiseTypeMismatch();
}

VARIANT* Variant::out() {
  VariantClear(&raw_);
  return &raw_;
}

VARIANT Variant::release() {
  const VARIANT given = raw_;
  VariantInit(&raw_);
  return given;
}

bool isMissing(const VARIANT* variant) {
  if (variant == nullptr) return true;
  if (variant->vt == (VT_BYREF | VT_VARIANT)) return isMissing(variant->pvarVal);
  return variant->vt == VT_ERROR && variant->scode == DISP_E_PARAMNOTFOUND;
}

ComPtr<IDispatch> objectIn(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_DISPATCH:
      return variant.pdispVal;
    case VT_BYREF | VT_DISPATCH:
      return *variant.ppdispVal;
    case VT_UNKNOWN:
      return dispatchOf(variant.punkVal);
    case VT_BYREF | VT_UNKNOWN:
      return dispatchOf(*variant.ppunkVal);
    case VT_BYREF | VT_VARIANT:
      return objectIn(*variant.pvarVal);
    case VT_EMPTY:
    case VT_NULL:
      return nullptr;
    default:
      raiseTypeMismatch("an object is wanted");
  }
}

Value toValue(const VARIANT& variant) {
  if (variant.vt & VT_BYREF) return toValue(Variant(variant).raw());
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_ERROR:
      if (isMissing(&variant)) return {};
      break;
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_I1:
      return static_cast<std::int16_t>(variant.cVal);
    case VT_UI1:
      return static_cast<std::int16_t>(variant.bVal);
    case VT_I2:
      return variant.iVal;
    case VT_UI2:
      return static_cast<std::int32_t>(variant.uiVal);
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(variant.lVal);
    case VT_UI4:
    case VT_UINT:
      return static_cast<std::int64_t>(variant.ulVal);
    case VT_I8:
      return static_cast<std::int64_t>(variant.llVal);
    case VT_UI8:
      return fromUnsigned(variant.ullVal);
    case VT_R4:
      return widened(variant.fltVal);
    case VT_R8:
      return variant.dblVal;
    case VT_CY:
      return Currency::fromTenThousandths(variant.cyVal.int64);
    case VT_DATE:
      return Date::fromSerial(variant.date);
    case VT_DECIMAL:
      return fromDecimal(variant.decVal);
    case VT_BSTR:
      return toUtf8(viewOf(variant.bstrVal));
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return defaultProperty(objectIn(variant).Get());
    default:
      break;
  }
  raiseTypeMismatch("a variant of type " + std::to_string(variant.vt));
}

template <typename T>
T fromVariant(const VARIANT& variant) {
  if (isEmpty(variant)) return T{};
  const Value value = toValue(variant);
  if constexpr (std::is_same_v<T, bool>) {
    return value.toBool();
  } else if constexpr (std::is_same_v<T, std::int16_t>) {
    return value.toInt16();
  } else if constexpr (std::is_same_v<T, std::int32_t>) {
    return value.toInt32();
  } else if constexpr (std::is_same_v<T, float>) {
    return toSingle(value.toDouble());
  } else if constexpr (std::is_same_v<T, double>) {
    return value.toDouble();
  } else if constexpr (std::is_same_v<T, Currency>) {
    return value.toCurrency();
  } else if constexpr (std::is_same_v<T, Date>) {
    return dateOf(value);
  } else {
    return value.toText();
  }
}

template bool fromVariant<bool>(const VARIANT&);
template std::int16_t fromVariant<std::int16_t>(const VARIANT&);
template std::int32_t fromVariant<std::int32_t>(const VARIANT&);
template float fromVariant<float>(const VARIANT&);
template double fromVariant<double>(const VARIANT&);
template Currency fromVariant<Currency>(const VARIANT&);
template Date fromVariant<Date>(const VARIANT&);
template std::string fromVariant<std::string>(const VARIANT&);

}  // namespace kt7::automation
