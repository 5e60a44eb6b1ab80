#include <array>
#include <map>
#include <vector>

#include <kt7/profile_table.h>
#include "checks.h"
#include "client.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

using automation::toUtf8;
using automation::viewOf;

/// What the type library says of a member, written like this: "3 method (SectionCode BSTR, DataObj
/// object&, UseOTRate bool) double".
using Lines = std::map<std::string, std::string>;

std::string typeText(ITypeInfo& information, const TYPEDESC& type) {
  if (type.vt == VT_PTR) return typeText(information, *type.lptdesc) + "&";
  if (type.vt == VT_USERDEFINED) {
    ComPtr<ITypeInfo> referred;
    information.GetRefTypeInfo(type.hreftype, &referred);
    BSTR name = nullptr;
    referred->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    std::string text = toUtf8(viewOf(name));
    SysFreeString(name);
    return text;
  }
  static const std::map<VARTYPE, std::string> kNames{
      {VT_BSTR, "text"},       {VT_I2, "int16"},  {VT_I4, "int32"},      {VT_R4, "single"},
      {VT_R8, "double"},       {VT_CY, "money"},  {VT_DATE, "date"},     {VT_BOOL, "bool"},
      {VT_DISPATCH, "object"}, {VT_VOID, "void"}, {VT_HRESULT, "status"}};
  const auto at = kNames.find(type.vt);
  return at != kNames.end() ? at->second : std::to_string(type.vt);
}

std::string parameterText(ITypeInfo& information, const ELEMDESC& element,
                          const std::string& name) {
  const USHORT flags = element.paramdesc.wParamFlags;
  std::string text = name + " " + typeText(information, element.tdesc);
  if (flags & PARAMFLAG_FOPT) text += "?";
  if (flags & PARAMFLAG_FHASDEFAULT) {
    const automation::Variant value(element.paramdesc.pparamdescex->varDefaultValue);
    text += "=" + automation::toValue(value.raw()).joinedText();
  }
  return text;
}

std::string memberText(ITypeInfo& information, const FUNCDESC& function,
                       const std::vector<std::string>& names) {
  std::string text =
      std::to_string(function.memid) + (function.invkind == INVOKE_FUNC          ? " method ("
                                        : function.invkind == INVOKE_PROPERTYGET ? " get ("
                                                                                 : " put (");
  std::string result = "void";
  std::string separator;
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    const auto at = static_cast<std::size_t>(i) + 1;
    if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      result = typeText(information, *element.tdesc.lptdesc);
      continue;
    }
    text += separator + parameterText(information, element, at < names.size() ? names[at] : "");
    separator = ", ";
  }
  return text + ") " + result;
}

/// By name; a property put has "=" after its name. The slots must follow each other.
Lines describe(ITypeInfo& information, bool& inOrder) {
  TYPEATTR* attributes = nullptr;
  information.GetTypeAttr(&attributes);
  Lines lines;
  SHORT slot = 7 * sizeof(void*);  // after IDispatch
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    information.GetFuncDesc(i, &function);
    std::array<BSTR, 32> found{};
    UINT count = 0;
    information.GetNames(function->memid, found.data(), found.size(), &count);
    std::vector<std::string> names;
    for (UINT n = 0; n < count; ++n) {
      names.push_back(toUtf8(viewOf(found[n])));
      SysFreeString(found[n]);
    }
    inOrder = inOrder && function->oVft == slot;
    slot = static_cast<SHORT>(slot + static_cast<SHORT>(sizeof(void*)));
    const bool put = function->invkind == INVOKE_PROPERTYPUT;
    if (put) names.resize(1);
    lines[names[0] + (put ? "=" : "")] = memberText(information, *function, names);
    information.ReleaseFuncDesc(function);
  }
  information.ReleaseTypeAttr(attributes);
  return lines;
}

template <typename T>
std::string libraryType() {
  if constexpr (std::is_void_v<T>) return "void";
  if constexpr (std::is_same_v<T, std::string>) return "text";
  if constexpr (std::is_same_v<T, bool>) return "bool";
  if constexpr (std::is_same_v<T, int16_t>) return "int16";
  if constexpr (std::is_same_v<T, int32_t>) return "int32";
  if constexpr (std::is_same_v<T, float>) return "single";
  if constexpr (std::is_same_v<T, double>) return "double";
  if constexpr (std::is_same_v<T, Currency>) return "money";
  if constexpr (std::is_same_v<T, Date>) return "date";
  if constexpr (std::is_same_v<T, kt7::KT7EmployeeSortType>) return "KT7EmployeeSortType";
  if constexpr (std::is_same_v<T, kt7::KT7HRAccessLevel>) return "KT7HRAccessLevel";
  return "object";
}

template <typename A>
std::string parameterLine(const Parameter& parameter) {
  using T = std::remove_cvref_t<A>;
  std::string text = std::string(parameter.name) + " " + libraryType<T>();
  if (std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>) text += "&";
  if (libraryType<T>() == "object") text.back() = '&';
  if (parameter.optional) {
    text += std::is_same_v<T, std::string> ? "?=" : std::is_same_v<T, bool> ? "?=False" : "?=0";
  }
  return text;
}

template <typename Result, typename... A>
std::string methodLine(int id, std::tuple<A...>*,
                       const std::array<Parameter, sizeof...(A)>& parameters) {
  std::string text = std::to_string(id) + " method (";
  [[maybe_unused]] std::size_t at = 0;
  ((text += (at == 0 ? "" : ", ") + parameterLine<A>(parameters[at]), ++at), ...);
  return text + ") " + libraryType<Result>();
}

Lines expectedOperations() {
  Lines lines;
  const auto add = [&](const auto& operation) {
    using Row = std::remove_cvref_t<decltype(operation)>;
    lines[std::string(operation.name)] = methodLine<typename Row::Result>(
        operation.dispatchId, static_cast<typename Row::Arguments*>(nullptr), operation.parameters);
  };
  std::apply([&](const auto&... operation) { (add(operation), ...); }, kOperations);
  return lines;
}

Lines expectedProfile() {
  Lines lines;
  int id = 0;
  const auto addProperty = [&](const auto& property) {
    using Type = typename std::remove_cvref_t<decltype(property)>::Type;
    const std::string number = std::to_string(++id);
    const std::string name(property.name);
    lines[name] = number + " get () " + libraryType<Type>();
    if (property.set != nullptr) {
      lines[name + "="] = number + " put ( " + libraryType<Type>() + ") void";
    }
  };
  std::apply([&](const auto&... property) { (addProperty(property), ...); }, kProfileProperties);
  const auto addMethod = [&](const auto& method) {
    using Row = std::remove_cvref_t<decltype(method)>;
    lines[std::string(method.name)] = methodLine<typename Row::Result>(
        ++id, static_cast<typename Row::Arguments*>(nullptr), method.parameters);
  };
  std::apply([&](const auto&... method) { (addMethod(method), ...); }, kProfileMethods);
  return lines;
}

/// The interface as a compiled client sees it; the other view of it is for calls by name.
ComPtr<ITypeInfo> vtableView(ITypeLib& library, REFIID interfaceId) {
  ComPtr<ITypeInfo> byName;
  ComPtr<ITypeInfo> view;
  HREFTYPE reference = 0;
  if (SUCCEEDED(library.GetTypeInfoOfGuid(interfaceId, &byName)) &&
      SUCCEEDED(byName->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) {
    byName->GetRefTypeInfo(reference, &view);
  }
  return view;
}

void compare(ITypeLib& library, REFIID interfaceId, const Lines& expected, const char* what) {
  const ComPtr<ITypeInfo> information = vtableView(library, interfaceId);
  check(information != nullptr, what);
  if (!information) return;
  bool inOrder = true;
  const Lines got = describe(*information.Get(), inOrder);
  for (const auto& [name, line] : expected) {
    const auto at = got.find(name);
    checkEqual(at != got.end() ? at->second : "", line, name);
  }
  check(got.size() == expected.size(), "no other member");
  check(inOrder, "every member has its own slot, in order");
}

void testEnumerations(ITypeLib& library) {
  const std::map<std::wstring, int> expected{{L"KT7PayTypeHoliday", 1},
                                             {L"KT7EmployeeSortTypeCost", 2},
                                             {L"KT7HolidayTypeHoliday", 1},
                                             {L"KT7HRAccessLevelAdmin", 2}};
  for (const auto& [name, value] : expected) {
    ComPtr<ITypeComp> compiler;
    library.GetTypeComp(&compiler);
    std::wstring asked = name;
    DESCKIND kind = DESCKIND_NONE;
    BINDPTR found{};
    ComPtr<ITypeInfo> owner;
    compiler->Bind(asked.data(), 0, 0, &owner, &kind, &found);
    check(kind == DESCKIND_VARDESC && found.lpvardesc->lpvarValue->lVal == value, toUtf8(name));
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
