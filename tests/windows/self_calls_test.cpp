#include "fronts/com/hrlib/self_calls.h"

#include "checks.h"
#include "fake_company.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

/// A host's object around one of the library's, which it aggregates.
template <typename Interface>
class Aggregate : public Interface {
 public:
  explicit Aggregate(REFCLSID inner) {
    CoCreateInstance(inner, static_cast<IUnknown*>(this), CLSCTX_INPROC_SERVER, IID_IUnknown,
                     reinterpret_cast<void**>(inner_.GetAddressOf()));
  }
  virtual ~Aggregate() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isInterface = IsEqualIID(id, __uuidof(Interface));
    if (isInterface && !showsInterface) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    if (isInterface || IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch)) {
      *object = static_cast<Interface*>(this);
      AddRef();
      return S_OK;
    }
    return inner_->QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }

  bool showsInterface = true;
  bool aggregated() const { return inner_ != nullptr; }
  ULONG references() const { return references_; }
  /// The inner object's own slots; its references are counted here.
  Interface* slots() {
    void* slots = nullptr;
    inner_->QueryInterface(__uuidof(Interface), &slots);
    Release();
    return static_cast<Interface*>(slots);
  }

 private:
  ComPtr<IUnknown> inner_;
  ULONG references_ = 1;
};

/// Answers GETDAYRATE itself and hands GETHOURRATE on.
class Wrapper : public Aggregate<::_HRObject> {
 public:
  Wrapper() : Aggregate(__uuidof(HRObject)) {}
  HRESULT failure = S_OK;

#include "operation_slots.inc"

 private:
  template <std::size_t Row, typename Out, typename... Given>
  HRESULT operation(Out result, Given... given) {
    if constexpr (Row == 0) {
      *result = 800;
      return failure;
    } else if constexpr (Row == 1) {
      return slots()->GETHOURRATE(given..., result);
    } else {
      return E_NOTIMPL;
    }
  }
};

/// Keeps what its setters are given and hands SetTypeCode on.
class ProfileWrapper : public Aggregate<::_EmployeeObject> {
 public:
  ProfileWrapper() : Aggregate(__uuidof(EmployeeObject)) {}
  std::string puts;

#include "profile_slots.inc"

 private:
  template <std::size_t Row, typename Out>
  HRESULT getProperty(Out) {
    return E_NOTIMPL;
  }
  template <std::size_t Row, typename Given>
  HRESULT putProperty(std::nullptr_t, [[maybe_unused]] Given value) {
    puts += std::get<Row>(kProfileProperties).name;
    if constexpr (std::is_arithmetic_v<Given>) {
      puts += "=" + std::to_string(static_cast<int>(value)) + " ";
    }
    return S_OK;
  }
  template <std::size_t Row, typename Out, typename... Given>
  HRESULT method(Out, Given... given) {
    if constexpr (Row == 0) {
      return slots()->SetTypeCode(given...);
    } else {
      return E_NOTIMPL;
    }
  }
};

void testOperations() {
  Wrapper wrapper;
  check(wrapper.aggregated(), "HRObject may be aggregated");
  const automation::BstrText employee("E0001");
  IDispatch* none = nullptr;
  double rate = 0;
  checkStatus(wrapper.GETHOURRATE(employee, &none, &rate), S_OK, "through the wrapper");
  check(rate == 100, "an operation that is defined by another asks the wrapper's");
  wrapper.failure = static_cast<HRESULT>(0x800A0006);
  automation::guarded("Earlier", IID_IDispatch, [] { raiseOverflow(); });
  checkStatus(wrapper.GETHOURRATE(employee, &none, &rate), wrapper.failure,
              "a failure of the wrapper's operation travels on");
  checkEqual(takeErrorText().text.substr(0, 19), "HRObject.GETDAYRATE",
             "without a text of its own it has none of an earlier failure");
  check(wrapper.references() == 1, "no reference to the wrapper is kept");
}

void testSetters() {
  FakeCompany company(2);
  ProfileWrapper wrapper;
  check(wrapper.aggregated() && wrapper.puts.empty(), "EmployeeObject may be aggregated");
  checkStatus(wrapper.SetTypeCode(automation::BstrText("M1"), company.dataObj()), S_OK,
              "SetTypeCode");
  checkEqual(wrapper.puts,
             "DayPerPeriod=2 DayPerYear=2 HourPerPeriod=2 HourPerWeek=2 HourPerMonth=2 "
             "HourPerYear=2 SalaryType=2 HourPerWeek=4 HourPerMonth=4 ",
             "SetTypeCode asks the wrapper's setters");
  double hours = 0;
  wrapper.slots()->get_HourPerWeek(&hours);
  check(hours == 56, "which answer for the object");
  wrapper.slots()->get_HourPerDay(&hours);
  check(hours == 2, "while it sets its own fields");
  check(wrapper.references() == 1, "no reference to the wrapper is kept");
}

/// An outer object that keeps the interface of the one inside to itself wraps none of it.
void testHiddenInterface() {
  FakeCompany company(2);
  ProfileWrapper profile;
  profile.showsInterface = false;
  checkStatus(profile.SetTypeCode(automation::BstrText("M1"), company.dataObj()), S_OK,
              "SetTypeCode inside an object that does not show the profile");
  double hours = 0;
  profile.slots()->get_HourPerWeek(&hours);
  check(profile.puts.empty() && hours == 4, "sets the profile's own properties");

  Wrapper wrapper;
  wrapper.showsInterface = false;
  double rate = 0;
  checkStatus(wrapper.slots()->GETSectionHourRate(automation::BstrText("S1"), company.dataObj(),
                                                  VARIANT_FALSE, &rate),
              static_cast<HRESULT>(0x800A01B8), "an operation asks the object's own");
  check(takeErrorText().text.find("DataTool.Lookup") != std::string::npos, "which asks the host");
  check(wrapper.references() == 1, "no reference to the wrapper is kept");
}

/// The library's view of a profile sets and reads what the profile has.
void testView() {
  FakeCompany company(2);
  const auto profile = create<::_EmployeeObject>(__uuidof(EmployeeObject));
  hrlib::ProfileSelfCalls view(profile.Get());
  view.Code("E0001");
  view.LastSSO(Currency::fromText("875.25"));
  view.SignDate(Date::fromYmd(2021, 5, 6));
  checkEqual(view.Code() + " " + view.LastSSO().toText() + " " + view.SignDate().isoDateText() +
                 " " + view.CalcMethod() + " " + view.TypeCode(),
             "E0001 875.2500 2021-05-06 M 1", "a profile through its slots");
}

}  // namespace

void testSelfCalls() {
  testOperations();
  testSetters();
  testHiddenInterface();
  testView();
}

}  // namespace kt7::client
