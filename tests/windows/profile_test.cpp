#include <kt7/profile_table.h>
#include "bindings.h"
#include "checks.h"
#include "fake_object.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

template <typename T>
Variant sample() {
  if constexpr (std::is_same_v<T, std::string>) {
    return "ชื่อ";
  } else if constexpr (std::is_same_v<T, Currency>) {
    return Currency::fromText("1234.5678");
  } else if constexpr (std::is_same_v<T, Date>) {
    return Date::fromYmd(2021, 5, 6);
  } else if constexpr (std::is_same_v<T, float>) {
    return 0.5F;
  } else {
    return static_cast<T>(36);
  }
}

std::string shown(const Variant& value) {
  return std::to_string(value.raw().vt) + " " + automation::toValue(value.raw()).joinedText();
}

/// What is put through one binding is read through the other, as the property's own type.
template <typename T>
void testProperty(const ProfileProperty<T>& property, ProfileBinding& put, ProfileBinding& get) {
  const std::string name(property.name);
  const Variant value = sample<T>();
  const std::string before = shown(get.get(name));
  if (property.set == nullptr) {
    bool refused = false;
    try {
      put.put(name, value);
    } catch (const Error&) {
      refused = true;
    }
    check(refused && shown(get.get(name)) == before, name + " can only be read");
    return;
  }
  put.put(name, value);
  check(before != shown(value), name + " had another value before");
  checkEqual(shown(get.get(name)), shown(value), name);
}

void testProperties(Binding put, Binding get) {
  const ComPtr<::_EmployeeObject> shared = create<::_EmployeeObject>(__uuidof(EmployeeObject));
  ProfileBinding putting(put, shared);
  ProfileBinding getting(get, shared);
  std::apply([&](const auto&... property) { (testProperty(property, putting, getting), ...); },
             kProfileProperties);
}

/// Halves of surrogate pairs are no characters; a host that cuts texts by units has them.
void testHalves(Binding put, Binding get) {
  const ComPtr<::_EmployeeObject> shared = create<::_EmployeeObject>(__uuidof(EmployeeObject));
  for (const std::wstring& text :
       {std::wstring(L"\xD83D"), std::wstring(L"ก\xDE00ข"), std::wstring(L"\xDE00\xD83D"),
        std::wstring(L"\xD83D\xD83D\xDE00"), std::wstring(L"\xDBFF\xE000\xD7FF\0\xDFFF", 5)}) {
    Variant given;
    given.out()->vt = VT_BSTR;
    const_cast<VARIANT&>(given.raw()).bstrVal = automation::newBstr(text);
    ProfileBinding(put, shared).put("FullName", given);
    const Variant got = ProfileBinding(get, shared).get("FullName");
    check(automation::viewOf(got.raw().bstrVal) == text,
          "half a surrogate pair in a text property");
  }
}

}  // namespace

void testProfile() {
  FakeKind utility;
  utility.members[L"RoundToDigits"] = answersFirstArgument();
  const FakeRole role(L"UtilityObject", utility);
  testProperties(Binding::Early, Binding::Late);
  testProperties(Binding::Late, Binding::Early);
  testHalves(Binding::Early, Binding::Late);
  testHalves(Binding::Late, Binding::Early);
}

}  // namespace kt7::client
