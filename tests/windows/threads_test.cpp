#include <thread>

#include "checks.h"
#include "client.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

/// An object that was made where threads are free lives in an apartment all the same: the caller
/// holds a proxy, and calls go through the platform's marshaller and the type library.
void callFromFreeThread(bool& isProxy, HRESULT& status, std::string& answer, double& money) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  {
    const auto hr = create<::_HRObject>(__uuidof(HRObject));
    ComPtr<IClientSecurity> proxy;
    isProxy = hr && SUCCEEDED(hr.As(&proxy));
    BSTR text = nullptr;
    status = hr ? hr->DateDifText(Date::fromYmd(2020, 1, 15).serial(),
                                  Date::fromYmd(2026, 3, 20).serial(), &text)
                : E_FAIL;
    answer = automation::toUtf8(automation::viewOf(text));
    SysFreeString(text);
    IDispatch* none = nullptr;
    if (hr) hr->TrimSFUNDBase(12.5, &none, &money);
  }
  CoUninitialize();
}

}  // namespace

void testThreads() {
  bool isProxy = false;
  HRESULT status = E_FAIL;
  std::string answer;
  double money = 0;
  std::thread([&] { callFromFreeThread(isProxy, status, answer, money); }).join();
  check(isProxy, "a free thread is given a proxy");
  checkStatus(status, S_OK, "a call from another apartment");
  checkEqual(answer, "6-2-0", "a call from another apartment");
  check(money == 12.5, "a call with an object from another apartment");
}

}  // namespace kt7::client
