#include "bindings.h"

#include <algorithm>

#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

using automation::toWide;

Variant invokeById(IDispatch& object, DISPID id, WORD flags, std::vector<VARIANT> arguments,
                   std::vector<DISPID> names, const std::string& what) {
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS parameters{arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                        static_cast<UINT>(names.size())};
  EXCEPINFO exception{};
  Variant answer;
  const HRESULT status = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                       answer.out(), &exception, nullptr);
  if (status == DISP_E_EXCEPTION) automation::raiseException(exception, what);
  if (FAILED(status)) automation::raiseStatus(status, what);
  return answer;
}

/// The slot of a member and the types that it takes, from the type library.
struct Slot {
  ULONG_PTR offset = 0;
  std::vector<VARTYPE> types;
  VARTYPE result = VT_EMPTY;
};

VARTYPE plainType(ITypeInfo& information, const TYPEDESC& type) {
  if (type.vt == VT_PTR) {
    return static_cast<VARTYPE>(VT_BYREF | plainType(information, *type.lptdesc));
  }
  return type.vt == VT_USERDEFINED ? static_cast<VARTYPE>(VT_I4) : type.vt;
}

Slot findSlot(ITypeInfo& byName, DISPID id, INVOKEKIND kind) {
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> information;
  byName.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference);
  byName.GetRefTypeInfo(reference, &information);
  Slot slot;
  for (UINT i = 0;; ++i) {
    FUNCDESC* function = nullptr;
    if (FAILED(information->GetFuncDesc(i, &function))) return slot;
    if (function->memid == id && function->invkind == kind) {
      slot.offset = static_cast<ULONG_PTR>(function->oVft);
      for (SHORT p = 0; p < function->cParams; ++p) {
        const ELEMDESC& element = function->lprgelemdescParam[p];
        const VARTYPE type = plainType(*information.Get(), element.tdesc);
        if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
          slot.result = static_cast<VARTYPE>(type & ~VT_BYREF);
        } else {
          slot.types.push_back(type);
        }
      }
    }
    information->ReleaseFuncDesc(function);
  }
}

}  // namespace

Variant CallsByName::invoke(std::string_view name, const std::vector<std::string_view>& names,
                            std::vector<VARIANT> arguments) {
  std::vector<std::wstring> texts{toWide(name)};
  for (const std::string_view one : names) texts.push_back(toWide(one));
  std::vector<LPOLESTR> asked;
  for (std::wstring& text : texts) asked.push_back(text.data());
  std::vector<DISPID> ids(asked.size());
  const std::string what(name);
  const HRESULT status = object_->GetIDsOfNames(
      IID_NULL, asked.data(), static_cast<UINT>(asked.size()), LOCALE_USER_DEFAULT, ids.data());
  if (FAILED(status)) automation::raiseStatus(status, what);
  // As given they are reversed once more: the last parameter is named first, in its own place.
  std::vector<DISPID> named(ids.begin() + 1, ids.end());
  if (!named.empty()) std::reverse(arguments.begin(), arguments.end());
  return invokeById(*object_.Get(), ids[0], DISPATCH_METHOD, std::move(arguments), named, what);
}

Variant ProfileBinding::get(const std::string& property) {
  return invoke(property, INVOKE_PROPERTYGET, {});
}

void ProfileBinding::put(const std::string& property, const Variant& value) {
  invoke(property, INVOKE_PROPERTYPUT, {value.raw()});
}

Variant ProfileBinding::call(const std::string& method, std::vector<VARIANT> arguments) {
  return invoke(method, INVOKE_FUNC, std::move(arguments));
}

Variant ProfileBinding::invoke(const std::string& member, INVOKEKIND kind,
                               std::vector<VARIANT> arguments) {
  if (binding_ == Binding::Early) return slotCall(member, kind, arguments);
  std::wstring name = toWide(member);
  auto* asked = name.data();
  DISPID id = 0;
  const HRESULT status = profile_->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(status)) automation::raiseStatus(status, member);
  std::vector<DISPID> names;
  if (kind == INVOKE_PROPERTYPUT) names.push_back(DISPID_PROPERTYPUT);
  return invokeById(*profile_.Get(), id, static_cast<WORD>(kind), std::move(arguments), names,
                    member);
}

Variant ProfileBinding::slotCall(const std::string& member, INVOKEKIND kind,
                                 std::vector<VARIANT>& arguments) {
  ComPtr<ITypeInfo> information;
  profile_->GetTypeInfo(0, 0, &information);
  std::wstring name = toWide(member);
  auto* asked = name.data();
  DISPID id = 0;
  information->GetIDsOfNames(&asked, 1, &id);
  Slot slot = findSlot(*information.Get(), id, kind);
  if (slot.offset == 0) automation::raiseStatus(DISP_E_MEMBERNOTFOUND, member);

  std::vector<Variant> typed;
  std::vector<ComPtr<IDispatch>> objects(arguments.size());
  std::vector<VARIANT> cells;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    VARIANT cell{};
    cell.vt = slot.types[i];
    if (cell.vt == (VT_BYREF | VT_DISPATCH)) {
      objects[i] = automation::objectIn(arguments[i]);
      cell.ppdispVal = objects[i].GetAddressOf();
    } else {
      Variant converted;
      VariantChangeType(converted.out(), &arguments[i], 0, slot.types[i]);
      cell = converted.raw();
      typed.push_back(std::move(converted));
    }
    cells.push_back(cell);
  }
  Variant answer;
  if (slot.result != VT_EMPTY) {
    VARIANT cell{};
    cell.vt = static_cast<VARTYPE>(VT_BYREF | slot.result);
    cell.pllVal = &answer.out()->llVal;
    answer.out()->vt = VT_EMPTY;
    cells.push_back(cell);
    slot.types.push_back(cell.vt);
  }
  std::vector<VARIANT*> pointers;
  for (VARIANT& cell : cells) pointers.push_back(&cell);
  Variant returned;
  const HRESULT called = DispCallFunc(profile_.Get(), slot.offset, CC_STDCALL, VT_ERROR,
                                      static_cast<UINT>(cells.size()), slot.types.data(),
                                      pointers.data(), returned.out());
  const HRESULT status = FAILED(called) ? called : returned.raw().scode;
  if (FAILED(status)) automation::raiseStatus(status, member);
  if (slot.result != VT_EMPTY) const_cast<VARIANT&>(answer.raw()).vt = slot.result;
  return answer;
}

}  // namespace kt7::client
