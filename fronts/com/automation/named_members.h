#pragma once

#include <windows.h>

#include <span>
#include <string_view>

#include "fronts/com/automation/arguments.h"
#include "fronts/com/automation/automation_object.h"
#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"

namespace kt7::automation {

/// How a member is called: flags of the platform (DISPATCH_METHOD, DISPATCH_PROPERTYGET, ...).
struct MemberCall {
  WORD flags;
  const Arguments& arguments;
  VARIANT* newValue;  // of a property put
};

/// A member that is reached by name alone. `parameters` are its parameters' names for callers that
/// name them, in order.
template <typename Object>
struct NamedMember {
  std::wstring_view name;
  WORD flags;  // what it may be called as
  std::size_t parameterCount;
  Variant (*call)(Object& object, const MemberCall& call);
  std::span<const std::wstring_view> parameters = {};
};

/// An automation object without a dual interface: IDispatch by a table of members, which Object
/// gives as `static std::span<const NamedMember<Object>> members()`. Dispatch ids are 1, 2, ... in
/// the table's order; a member whose name is empty is the default one (DISPID_VALUE). Object also
/// has `static constexpr const char* kSource`, the source of its errors.
template <typename Object>
class NamedMembers : public AutomationObject<IDispatch> {
 public:
  using AutomationObject<IDispatch>::AutomationObject;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
    if (information != nullptr) *information = nullptr;
    return DISP_E_BADINDEX;
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    const auto table = Object::members();
    for (std::size_t row = 0; row < table.size(); ++row) {
      if (table[row].name.empty() || !equalNoCase(table[row].name, names[0])) continue;
      ids[0] = static_cast<DISPID>(row + 1);
      return parameterIds(table[row], names, count, ids);
    }
    return DISP_E_UNKNOWNNAME;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given,
                                   VARIANT* answer, EXCEPINFO* exception, UINT*) override {
    const NamedMember<Object>* member = memberOf(id);
    if (member == nullptr || (member->flags & flags) == 0) return DISP_E_MEMBERNOTFOUND;
    const HRESULT status = guarded(Object::kSource, IID_IDispatch, [&] {
      DISPPARAMS rest = given != nullptr ? *given : DISPPARAMS{};
      VARIANT* newValue = putValue(rest);
      if (newValue != nullptr) {
        ++rest.rgvarg;
        ++rest.rgdispidNamedArgs;
        --rest.cArgs;
        --rest.cNamedArgs;
      }
      const Arguments arguments(rest, member->parameterCount);
      Variant result = member->call(static_cast<Object&>(*this), {flags, arguments, newValue});
      if (answer != nullptr) *answer = result.release();
    });
    return moveToException(status, exception);
  }

 private:
  static const NamedMember<Object>* memberOf(DISPID id) {
    const auto table = Object::members();
    if (id >= 1 && static_cast<std::size_t>(id) <= table.size()) {
      return &table[static_cast<std::size_t>(id - 1)];
    }
    if (id != DISPID_VALUE) return nullptr;
    for (const auto& member : table) {
      if (member.name.empty()) return &member;
    }
    return nullptr;
  }

  static HRESULT parameterIds(const NamedMember<Object>& member, LPOLESTR* names, UINT count,
                              DISPID* ids) {
    HRESULT status = S_OK;
    for (UINT i = 1; i < count; ++i) {
      for (std::size_t at = 0; at < member.parameters.size(); ++at) {
        if (equalNoCase(member.parameters[at], names[i])) ids[i] = static_cast<DISPID>(at);
      }
      if (ids[i] == DISPID_UNKNOWN) status = DISP_E_UNKNOWNNAME;
    }
    return status;
  }
};

}  // namespace kt7::automation
