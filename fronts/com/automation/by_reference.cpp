#include "fronts/com/automation/by_reference.h"

#include <array>
#include <cstring>

#include <kt7/error.h>

namespace kt7::automation {

namespace {

/// A type that a caller's variable may have, and its size there.
struct StorableType {
  VARTYPE type;
  std::size_t size;
};
constexpr std::array<StorableType, 17> kStorableTypes{{{VT_BOOL, 2},
                                                       {VT_I1, 1},
                                                       {VT_UI1, 1},
                                                       {VT_I2, 2},
                                                       {VT_UI2, 2},
                                                       {VT_I4, 4},
                                                       {VT_UI4, 4},
                                                       {VT_INT, 4},
                                                       {VT_UINT, 4},
                                                       {VT_I8, 8},
                                                       {VT_UI8, 8},
                                                       {VT_R4, 4},
                                                       {VT_R8, 8},
                                                       {VT_CY, 8},
                                                       {VT_DATE, 8},
                                                       {VT_DECIMAL, sizeof(DECIMAL)},
                                                       {VT_BSTR, sizeof(BSTR)}}};

/// What a by-reference argument refers to in the end: script hosts pass references to references.
const VARIANT& variableBehind(const VARIANT& argument) {
  const VARIANT* at = &argument;
  while (at->vt == (VT_BYREF | VT_VARIANT) && (at->pvarVal->vt & VT_BYREF) != 0) at = at->pvarVal;
  return *at;
}

bool takesAnything(const VARIANT& variable) { return variable.vt == (VT_BYREF | VT_VARIANT); }

VARTYPE typeIn(const VARIANT& variable) { return static_cast<VARTYPE>(variable.vt & ~VT_BYREF); }

/// 0 for a variable that takes no value.
std::size_t sizeIn(const VARIANT& variable) {
  for (const StorableType& row : kStorableTypes) {
    if (row.type == typeIn(variable)) return row.size;
  }
  return 0;
}

}  // namespace

const void* variableOf(const VARIANT& argument) {
  const VARIANT& variable = variableBehind(argument);
  return (variable.vt & VT_BYREF) != 0 ? variable.byref : nullptr;
}

Variant convertedFor(const VARIANT& argument, Variant value) {
  const VARIANT& variable = variableBehind(argument);
  if ((variable.vt & VT_BYREF) == 0 || takesAnything(variable)) return value;
  if (sizeIn(variable) == 0) {
    raiseTypeMismatch("an argument by reference of type " + std::to_string(typeIn(variable)));
  }
  Variant converted;
  const HRESULT status =
      VariantChangeType(converted.out(), const_cast<VARIANT*>(&value.raw()), 0, typeIn(variable));
  if (status == DISP_E_OVERFLOW) raiseOverflow();
  if (FAILED(status)) raiseTypeMismatch();
  return converted;
}

void storeByReference(const VARIANT& argument, Variant converted) noexcept {
  const VARIANT& variable = variableBehind(argument);
  if ((variable.vt & VT_BYREF) == 0) return;
  if (takesAnything(variable)) {
    VariantClear(variable.pvarVal);
    *variable.pvarVal = converted.release();
    return;
  }
  if (typeIn(variable) == VT_BSTR) {
    SysFreeString(*variable.pbstrVal);
    *variable.pbstrVal = converted.release().bstrVal;
    return;
  }
  const VARIANT& raw = converted.raw();
  const void* const value = raw.vt == VT_DECIMAL ? static_cast<const void*>(&raw) : &raw.byref;
  std::memcpy(variable.byref, value, sizeIn(variable));
  if (raw.vt == VT_DECIMAL) variable.pdecVal->wReserved = 0;  // where a variant keeps its type
}

}  // namespace kt7::automation
