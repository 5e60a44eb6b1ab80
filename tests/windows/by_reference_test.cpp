#include <array>
#include <cstring>

#include "checks.h"
#include "fake_company.h"
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
  bool failing = false;

  void follow(std::int16_t& first, std::int16_t& second) {
    first = 5;
    second = static_cast<std::int16_t>(second + 2);
    if (failing) raiseOverflow();
  }
  void spend(Currency& money, std::int16_t&) { money = Currency(); }
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
  check(first == 7 && second == 8, "nothing comes back of results that do not all fit");
}

using TwoNumbers = std::tuple<std::int16_t&, std::int16_t&>;

/// One variable that is passed twice is one to the callee, and holds what the callee wrote to it,
/// also where the callee failed then.
void testOneVariable() {
  for (const bool failing : {false, true}) {
    Work work{failing};
    const auto late = [&](VARIANT variable) {
      std::array arguments{variable, variable};
      const DISPPARAMS parameters{arguments.data(), nullptr, 2, 0};
      automation::guarded("", IID_IDispatch, [&] {
        hrlib::callLate<void>(static_cast<TwoNumbers*>(nullptr), work, &Work::follow,
                              {Parameter("first"), Parameter("second")},
                              automation::Arguments(parameters, 2));
      });
    };
    const std::string name = failing ? " after a failure" : "";
    short typed = 40;
    late(reference(VT_I2, &typed));
    check(typed == 7, "one typed variable" + name);
    VARIANT any = Variant(40).release();
    late(reference(VT_VARIANT, &any));
    check(any.vt == VT_I2 && any.iVal == 7, "one variable of any type" + name);
    short slot = 40;
    const HRESULT status =
        hrlib::callEarly<void>(static_cast<TwoNumbers*>(nullptr), "", IID_IDispatch, work,
                               &Work::follow, nullptr, &slot, &slot);
    check(slot == 7 && FAILED(status) == failing, "one variable of a slot" + name);
  }
  VARIANT any = Variant(40).release();
  std::array arguments{reference(VT_VARIANT, &any), reference(VT_VARIANT, &any)};
  const DISPPARAMS parameters{arguments.data(), nullptr, 2, 0};
  Work work;
  hrlib::callLate<void>(static_cast<std::tuple<Currency&, std::int16_t&>*>(nullptr), work,
                        &Work::spend, {Parameter("money"), Parameter("number")},
                        automation::Arguments(parameters, 2));
  check(any.vt == VT_CY && any.cyVal.int64 == 0,
        "one variable as two types holds what was written");
}

struct Tax {
  HRESULT status;
  float tax;
};

/// CalcPTAX is answered by CalcPTAX4, two calls of the object's own slots further.
Tax taxOf(::_HRObject& hr, FakeCompany& company, CURRENCY& reduce, CURRENCY& donation) {
  const CURRENCY none{.int64 = 0};
  const CURRENCY pay{.int64 = 500'000'000};
  CURRENCY study = none;
  CURRENCY waived = none;
  short months = 11;
  VARIANT_BOOL fixed = VARIANT_FALSE;
  Tax tax{};
  tax.status = hr.CalcPTAX(company.dataObj(), pay, 0, 0, 0, &months, &reduce, none, &study,
                           &donation, &waived, none, &fixed, &tax.tax);
  return tax;
}

void testThroughTheSlots() {
  FakeCompany company(10);
  const auto hr = create<::_HRObject>(__uuidof(HRObject));
  CURRENCY reduce{.int64 = 600'000'000};
  CURRENCY donation{.int64 = 5'000'000};
  const Tax less = taxOf(*hr.Get(), company, reduce, donation);
  check(less.status == S_OK && donation.int64 == 0 && reduce.int64 == 600'000'000,
        "the donation comes back as 0");
  const Tax shared = taxOf(*hr.Get(), company, reduce, reduce);
  check(reduce.int64 == 0, "one variable for a deduction and the donation");
  const Tax whole = taxOf(*hr.Get(), company, reduce, donation);
  check(shared.tax == whole.tax && less.tax < whole.tax, "reduces nothing");

  company.connection.members[L"Open"] = fails(E_ACCESSDENIED, L"closed");
  donation.int64 = 5'000'000;
  checkStatus(taxOf(*hr.Get(), company, reduce, donation).status, E_ACCESSDENIED, "no database");
  check(donation.int64 == 0, "what was written before the failure has come back");
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
  testOneVariable();
  testThroughTheSlots();
  testBeforeTheWork();
}

}  // namespace kt7::client
