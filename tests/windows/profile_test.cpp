#include <kt7/profile_table.h>
#include "checks.h"
#include "fake_object.h"
#include "fronts/com/automation/text.h"
#include "fronts/com/hrlib/self_calls.h"

namespace kt7::client {

namespace {

template <typename T>
T sample(int number) {
  if constexpr (std::is_same_v<T, std::string>) {
    return "ชื่อ" + std::to_string(number);
  } else if constexpr (std::is_same_v<T, Currency>) {
    return Currency::fromText("1234.5678") + Currency::fromWhole(number);
  } else if constexpr (std::is_same_v<T, Date>) {
    return Date::fromYmd(2021, 5, number);
  } else if constexpr (std::is_same_v<T, float>) {
    return 0.5F + static_cast<float>(number);
  } else {
    return static_cast<T>(30 + number);
  }
}

std::string shown(const Variant& value) {
  return std::to_string(value.raw().vt) + " " + automation::toValue(value.raw()).joinedText();
}

/// What is put through a slot is read by name and the other way round, as the property's own type.
template <typename T>
void testProperty(const ProfileProperty<T>& property, kt7::_EmployeeObject& slots,
                  const LateObject& named) {
  const std::string name(property.name);
  const std::wstring wide = automation::toWide(name);
  const std::string before = shown((slots.*property.get)());
  if (property.set == nullptr) {
    bool refused = false;
    try {
      named.put(wide.c_str(), sample<T>(1));
    } catch (const Error&) {
      refused = true;
    }
    check(refused && shown(named.call(wide.c_str())) == before, name + " can only be read");
    return;
  }
  const Variant first = sample<T>(1);
  const Variant second = sample<T>(2);
  check(before != shown(first), name + " had another value before");
  (slots.*property.set)(sample<T>(1));
  checkEqual(shown(named.call(wide.c_str())), shown(first), name + " by name");
  named.put(wide.c_str(), second);
  checkEqual(shown((slots.*property.get)()), shown(second), name + " through its slot");
}

/// Halves of surrogate pairs are no characters; a host that cuts texts by units has them.
void testHalves(::_EmployeeObject& slots, const LateObject& named) {
  for (const std::wstring& text :
       {std::wstring(L"\xD83D"), std::wstring(L"ก\xDE00ข"), std::wstring(L"\xDE00\xD83D"),
        std::wstring(L"\xD83D\xD83D\xDE00"), std::wstring(L"\xDBFF\xE000\xD7FF\0\xDFFF", 5)}) {
    Variant given;
    given.out()->vt = VT_BSTR;
    const_cast<VARIANT&>(given.raw()).bstrVal = automation::newBstr(text);
    slots.put_FullName(given.raw().bstrVal);
    check(automation::viewOf(named.call(L"FullName").raw().bstrVal) == text,
          "half a surrogate pair through a slot");
    named.put(L"Barcode", given);
    BSTR got = nullptr;
    slots.get_Barcode(&got);
    check(automation::viewOf(got) == text, "half a surrogate pair by name");
    SysFreeString(got);
  }
}

}  // namespace

void testProfile() {
  FakeKind utility;
  utility.members[L"RoundToDigits"] = answersFirstArgument();
  const FakeRole role(L"UtilityObject", utility);
  const auto profile = create<::_EmployeeObject>(__uuidof(EmployeeObject));
  hrlib::ProfileSelfCalls slots(profile.Get());
  const LateObject named(profile.Get(), "EmployeeObject");
  std::apply([&](const auto&... property) { (testProperty(property, slots, named), ...); },
             kProfileProperties);
  testHalves(*profile.Get(), named);
}

}  // namespace kt7::client
