#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fronts/com/automation/arguments.h"

namespace kt7::hrlib {

using automation::Arguments;
using automation::Variant;

/// A member that is called by name or dispatch id; the calls are null where it has no such form.
template <typename Object>
struct NamedCall {
  std::wstring name;
  DISPID id = DISPID_UNKNOWN;
  std::vector<std::wstring> parameters;
  bool anyArguments = false;  // nobody has said which there are
  Variant (*get)(Object& object, const Arguments& given) = nullptr;  // or the method
  void (*put)(Object& object, const VARIANT& value) = nullptr;
};

/// What IDispatch needs to know of a member, whatever its object.
struct MemberName {
  std::wstring_view name;
  DISPID id;
  std::span<const std::wstring> parameters;
  bool anyArguments;
};

/// Dispatch ids of a member and of its parameters' names, letter case aside: `member` is the one
/// that names[0] found, null for none.
HRESULT fillIds(const MemberName* member, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

}  // namespace kt7::hrlib
