#include <array>
#include <cstring>

#include "checks.h"
#include "fake_object.h"
#include "fronts/com/automation/status.h"
#include "fronts/com/hrlib/calls.h"

namespace kt7::client {

namespace {

VARIANT reference(VARTYPE type, void* variable) {
  VARIANT argument{};
  argument.vt = static_cast<VARTYPE>(VT_BYREF | type);
  argument.byref = variable;
  return argument;
}

/// A value comes back from a variable of every type, and nothing beside the variable is touched.
void testTypes() {
  constexpr std::array kSizes{
      std::pair{VT_I1, 1}, std::pair{VT_UI1, 1},  std::pair{VT_I2, 2},   std::pair{VT_UI2, 2},
      std::pair{VT_I4, 4}, std::pair{VT_UI4, 4},  std::pair{VT_INT, 4},  std::pair{VT_UINT, 4},
      std::pair{VT_I8, 8}, std::pair{VT_UI8, 8},  std::pair{VT_R4, 4},   std::pair{VT_R8, 8},
      std::pair{VT_CY, 8}, std::pair{VT_DATE, 8}, std::pair{VT_BOOL, 2}, std::pair{VT_DECIMAL, 16}};
  for (const auto& [type, size] : kSizes) {
    const std::string name = "a variable of type " + std::to_string(type);
    alignas(16) std::array<char, 24> place;
    place.fill('x');
    const VARIANT argument = reference(static_cast<VARTYPE>(type), place.data());
    const double given = type == VT_BOOL ? -1 : 100;
    try {
      automation::storeByReference(argument, automation::convertedFor(argument, Variant(given)));
      checkEqual(std::to_string(automation::fromVariant<double>(argument)), std::to_string(given),
                 name);
    } catch (const Error& error) {
      checkEqual(error.what(), "", name);
    }
    check(place[static_cast<std::size_t>(size)] == 'x', name + " keeps its size");
  }
}

struct Work {
  void run(std::int16_t& first, std::int16_t& second) {
    first = 1;
    second = 300;
  }
};

/// The second result does not fit: the first does not come back either.
void testAllOrNone() {
  short first = 7;
  unsigned char second = 8;
  std::array arguments{reference(VT_UI1, &second), reference(VT_I2, &first)};
  const DISPPARAMS parameters{arguments.data(), nullptr, 2, 0};
  Work work;
  std::int32_t number = 0;
  try {
    hrlib::callLate<void>(static_cast<std::tuple<std::int16_t&, std::int16_t&>*>(nullptr), work,
                          &Work::run, {Parameter("first"), Parameter("second")},
                          automation::Arguments(parameters, 2));
  } catch (const Error& error) {
    number = error.number();
  }
  check(number == error_number::kOverflow, "a result that does not fit its variable");
  check(first == 7 && second == 8, "nothing comes back from a call that fails");
}

/// ToCode is a parameter by reference of an operation that writes.
void testBeforeTheWork() {
  FakeKind data;
  data.members[L"ExecuteSqlEx"] = [](FakeCall&) { return Variant(); };
  const auto dataObj = newFake(data);
  const auto hr = create<IDispatch>(__uuidof(HRObject));
  unsigned char code = 7;
  const Variant given(dataObj.Get());
  const auto rename = [&](const VARIANT& to) {
    const Variant from("E0001");
    return call(hr.Get(), L"RenameEmployeeCodeTR", {given.raw(), from.raw(), to}).scode;
  };
  checkStatus(rename(reference(VT_UI1, &code)), S_OK, "a code in a byte");
  check(data.calls.size() > 1 && code == 7, "is written");

  data.calls.clear();
  FakeKind cell;
  cell.members[L""] = [](FakeCall&) { return Variant("E0002"); };
  const auto object = newFake(cell);
  IDispatch* variable = object.Get();
  checkStatus(rename(reference(VT_DISPATCH, &variable)), automation::statusOf(13),
              "a code in an object, which takes no text");
  check(cell.calls.size() == 1 && data.calls.empty(), "is refused before anything is written");
}

}  // namespace

void testByReference() {
  testTypes();
  testAllOrNone();
  testBeforeTheWork();
}

}  // namespace kt7::client
