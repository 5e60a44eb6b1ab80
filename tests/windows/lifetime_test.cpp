#include "checks.h"
#include "fake_object.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

constexpr int kMany = 10000;

FakeKind utilities() {
  FakeKind kind;
  kind.members[L"RoundToDigits"] = [](FakeCall& call) { return Variant(*call.arguments.at(0)); };
  return kind;
}

}  // namespace

void testLifetimes(const Library& library) {
  checkStatus(library.canUnload(), S_OK, "no object is left of what ran before");
  FakeKind utility = utilities();
  FakeKind data;
  const FakeRole role(L"UtilityObject", utility);
  auto* dataObj = new FakeObject(data);
  int made = 0;
  for (int i = 0; i < kMany; ++i) {
    const auto hr = create<::_HRObject>(__uuidof(HRObject));
    const auto profile = create<::_EmployeeObject>(__uuidof(EmployeeObject));
    if (!hr || !profile) break;
    IDispatch* given = dataObj;
    double same = 0;
    hr->TrimSFUNDBase(i, &given, &same);
    hr->GETDAYRATE(nullptr, &given, &same);  // fails: the host's objects are missing
    double hours = 0;
    profile->get_HourPerWeek(&hours);
    made += same == i && hours == 56 ? 1 : 0;
  }
  check(made == kMany, "ten thousand of each class");
  check(dataObj->references() == 1, "no reference to the data object is kept");
  checkEqual(std::to_string(utility.living), "0", "no collaborator is left");
  checkStatus(library.canUnload(), S_OK, "no object is left");
  dataObj->Release();

  {
    const auto held = create<IUnknown>(__uuidof(HRObject));
    checkStatus(library.canUnload(), S_FALSE, "while an object lives");
  }
  ComPtr<IClassFactory> factory;
  CoGetClassObject(__uuidof(HRObject), CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory));
  factory->LockServer(TRUE);
  factory.Reset();
  checkStatus(library.canUnload(), S_FALSE, "while the server is locked");
  CoGetClassObject(__uuidof(HRObject), CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory));
  factory->LockServer(FALSE);
  factory.Reset();
  checkStatus(library.canUnload(), S_OK, "when it is unlocked");
}

}  // namespace kt7::client
