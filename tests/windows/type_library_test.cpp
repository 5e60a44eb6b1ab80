#include <array>
#include <map>
#include <vector>

#include <kt7/profile_table.h>
#include "checks.h"
#include "client.h"
#include "fronts/com/automation/text.h"
#include "fronts/com/hrlib/crossing.h"

namespace kt7::client {

namespace {

/// What the type library says of a member: "3 method (SectionCode 8, DataObj 16393, UseOTRate 11)
/// 5", where the numbers behind the names are the platform's types.
using Lines = std::map<std::string, std::string>;

std::string takeText(BSTR text) {
  std::string taken = automation::toUtf8(automation::viewOf(text));
  SysFreeString(text);
  return taken;
}

std::string parameterText(std::string_view name, VARTYPE type, bool optional,
                          const std::string& defaultText) {
  return std::string(name) + " " + std::to_string(type) + (optional ? "?=" + defaultText : "");
}

std::string memberText(int id, INVOKEKIND kind, const std::vector<std::string>& parameters,
                       VARTYPE result) {
  std::string text = std::to_string(id) + (kind == INVOKE_FUNC          ? " method ("
                                           : kind == INVOKE_PROPERTYGET ? " get ("
                                                                        : " put (");
  for (const std::string& one : parameters) text += (&one == parameters.data() ? "" : ", ") + one;
  return text + ") " + std::to_string(result);
}

VARTYPE typeOf(const TYPEDESC& type) {
  return type.vt == VT_PTR ? static_cast<VARTYPE>(VT_BYREF | typeOf(*type.lptdesc)) : type.vt;
}

std::string described(const FUNCDESC& function, const std::vector<std::string>& names) {
  std::vector<std::string> parameters;
  VARTYPE result = VT_VOID;
  for (SHORT i = 0; i < function.cParams; ++i) {
    const TYPEDESC& type = function.lprgelemdescParam[i].tdesc;
    const PARAMDESC& description = function.lprgelemdescParam[i].paramdesc;
    const auto at = static_cast<std::size_t>(i) + 1;
    if (description.wParamFlags & PARAMFLAG_FRETVAL) {
      result = typeOf(*type.lptdesc);
      continue;
    }
    Variant value;
    if (description.wParamFlags & PARAMFLAG_FHASDEFAULT) {
      value = Variant(description.pparamdescex->varDefaultValue);
    }
    parameters.push_back(parameterText(at < names.size() ? names[at] : "", typeOf(type),
                                       description.wParamFlags & PARAMFLAG_FOPT,
                                       automation::toValue(value.raw()).joinedText()));
  }
  return memberText(function.memid, function.invkind, parameters, result);
}

/// By name; a property put has "=" after its name. The slots must follow each other.
Lines describe(ITypeInfo& information, bool& inOrder) {
  Lines lines;
  SHORT slot = 7 * sizeof(void*);  // after IDispatch
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(information.GetFuncDesc(i, &function)); ++i) {
    std::array<BSTR, 32> found{};
    UINT count = 0;
    information.GetNames(function->memid, found.data(), found.size(), &count);
    std::vector<std::string> names;
    for (UINT n = 0; n < count; ++n) names.push_back(takeText(found[n]));
    inOrder = inOrder && function->oVft == slot;
    slot = static_cast<SHORT>(slot + static_cast<SHORT>(sizeof(void*)));
    const bool put = function->invkind == INVOKE_PROPERTYPUT;
    if (put) names.resize(1);
    lines[names[0] + (put ? "=" : "")] = described(*function, names);
    information.ReleaseFuncDesc(function);
  }
  return lines;
}

template <typename A>
VARTYPE expectedType() {
  using T = std::remove_cvref_t<A>;
  constexpr bool kByReference =
      std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>;
  const VARTYPE reference = kByReference ? VT_BYREF : VT_EMPTY;
  if constexpr (std::is_void_v<T>) {
    return VT_VOID;
  } else if constexpr (hrlib::HostObject<A>) {
    return VT_BYREF | VT_DISPATCH;
  } else if constexpr (std::is_enum_v<T>) {
    return reference | VT_USERDEFINED;
  } else {
    return reference | Variant(T()).raw().vt;
  }
}

template <typename A>
std::string expectedParameter(const Parameter& parameter) {
  const bool text = std::is_same_v<std::remove_cvref_t<A>, std::string>;
  const bool flag = std::is_same_v<std::remove_cvref_t<A>, bool>;
  return parameterText(parameter.name, expectedType<A>(), parameter.optional,
                       text   ? ""
                       : flag ? "False"
                              : "0");
}

template <typename Result, typename... A>
std::string expectedMethod(int id, std::tuple<A...>*,
                           const std::array<Parameter, sizeof...(A)>& parameters) {
  [[maybe_unused]] const Parameter* next = parameters.data();
  return memberText(id, INVOKE_FUNC, {expectedParameter<A>(*next++)...}, expectedType<Result>());
}

Lines expectedOperations() {
  Lines lines;
  const auto add = [&]<typename Row>(const Row& row) {
    lines[std::string(row.name)] = expectedMethod<typename Row::Result>(
        row.dispatchId, static_cast<typename Row::Arguments*>(nullptr), row.parameters);
  };
  std::apply([&](const auto&... row) { (add(row), ...); }, kOperations);
  return lines;
}

Lines expectedProfile() {
  Lines lines;
  int id = 0;
  const auto addProperty = [&]<typename T>(const ProfileProperty<T>& property) {
    const std::string name(property.name);
    lines[name] = memberText(++id, INVOKE_PROPERTYGET, {}, expectedType<T>());
    if (property.set == nullptr) return;
    lines[name + "="] = memberText(id, INVOKE_PROPERTYPUT,
                                   {parameterText("", expectedType<T>(), false, "")}, VT_VOID);
  };
  std::apply([&](const auto&... property) { (addProperty(property), ...); }, kProfileProperties);
  const auto addMethod = [&]<typename Row>(const Row& row) {
    lines[std::string(row.name)] = expectedMethod<typename Row::Result>(
        ++id, static_cast<typename Row::Arguments*>(nullptr), row.parameters);
  };
  std::apply([&](const auto&... method) { (addMethod(method), ...); }, kProfileMethods);
  return lines;
}

/// The interface as a compiled client sees it; the other view of it is for calls by name.
void compare(ITypeLib& library, REFIID interfaceId, const Lines& expected, const char* what) {
  ComPtr<ITypeInfo> byName;
  ComPtr<ITypeInfo> view;
  HREFTYPE reference = 0;
  const bool found = SUCCEEDED(library.GetTypeInfoOfGuid(interfaceId, &byName)) &&
                     SUCCEEDED(byName->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) &&
                     SUCCEEDED(byName->GetRefTypeInfo(reference, &view));
  check(found, what);
  if (!found) return;
  bool inOrder = true;
  Lines got = describe(*view.Get(), inOrder);
  for (const auto& [name, line] : expected) checkEqual(got[name], line, name);
  check(got.size() == expected.size(), "no other member");
  check(inOrder, "every member has its own slot, in order");
}

void testEnumerations(ITypeLib& library) {
  const std::pair<std::wstring, int> expected[] = {{L"KT7PayTypeHoliday", 1},
                                                   {L"KT7EmployeeSortTypeCost", 2},
                                                   {L"KT7HolidayTypeHoliday", 1},
                                                   {L"KT7HRAccessLevelAdmin", 2}};
  ComPtr<ITypeComp> compiler;
  library.GetTypeComp(&compiler);
  for (auto [name, value] : expected) {
    DESCKIND kind = DESCKIND_NONE;
    BINDPTR found{};
    ComPtr<ITypeInfo> owner;
    compiler->Bind(name.data(), 0, 0, &owner, &kind, &found);
    check(kind == DESCKIND_VARDESC && found.lpvardesc->lpvarValue->lVal == value,
          automation::toUtf8(name));
    if (kind == DESCKIND_VARDESC) owner->ReleaseVarDesc(found.lpvardesc);
  }
}

}  // namespace

void testTypeLibrary() {
  const auto hr = create<IDispatch>(__uuidof(HRObject));
  ComPtr<ITypeInfo> information;
  ComPtr<ITypeLib> library;
  UINT index = 0;
  hr->GetTypeInfo(0, 0, &information);
  information->GetContainingTypeLib(&library, &index);
  compare(*library.Get(), __uuidof(::_HRObject), expectedOperations(), "_HRObject is described");
  compare(*library.Get(), __uuidof(::_EmployeeObject), expectedProfile(),
          "_EmployeeObject is described");
  testEnumerations(*library.Get());
}

}  // namespace kt7::client
