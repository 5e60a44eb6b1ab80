// Calls HRObject through its table of functions, as a compiled client does: the header is made by
// the build (described/KT7HRLib.h) and belongs to the package.
//   vtable_client DATABASE EMPLOYEE

#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <cwchar>
#include <string>

// The ids of KT7HRLib are defined here, those of the system are not.
#include <initguid.h>

#include "KT7HRLib.h"

namespace {

constexpr int kMoneyScale = 10000;

CURRENCY baht(int amount) {
  CURRENCY money;
  money.int64 = static_cast<LONGLONG>(amount) * kMoneyScale;
  return money;
}

/// Says what the library says about a call that failed.
bool succeeded(HRESULT status, const char* call) {
  if (SUCCEEDED(status)) return true;
  IErrorInfo* information = nullptr;
  BSTR text = nullptr;
  if (GetErrorInfo(0, &information) == S_OK) {
    information->GetDescription(&text);
    information->Release();
  }
  std::fprintf(stderr, "%s: %08lx %ls\n", call, static_cast<unsigned long>(status),
               text != nullptr ? text : L"");
  SysFreeString(text);
  return false;
}

/// object.name = text, late bound.
HRESULT put(IDispatch* object, const wchar_t* name, BSTR text) {
  DISPID id = 0;
  auto* names = const_cast<LPOLESTR>(name);
  HRESULT status = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(status)) return status;
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = text;
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value, &put, 1, 1};
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                        nullptr, nullptr, nullptr);
}

/// A KT7Database2.DataObj of that database; null where it cannot be made.
IDispatch* dataObject(const std::wstring& database) {
  CLSID id;
  IDispatch* data = nullptr;
  if (!succeeded(CLSIDFromProgID(L"KT7Database2.DataObj", &id), "KT7Database2.DataObj") ||
      !succeeded(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                  reinterpret_cast<void**>(&data)),
                 "KT7Database2.DataObj")) {
    return nullptr;
  }
  const BSTR text = SysAllocString((L"Driver=SQLite;Database=" + database).c_str());
  const bool named = succeeded(put(data, L"ConnectionString", text), "ConnectionString");
  SysFreeString(text);
  if (named) return data;
  data->Release();
  return nullptr;
}

bool printRates(_HRObject* hr, IDispatch* data, const wchar_t* employee) {
  const BSTR code = SysAllocString(employee);
  double day = 0;
  double hour = 0;
  const bool done = succeeded(hr->GETDAYRATE(code, &data, &day), "GETDAYRATE") &&
                    succeeded(hr->GETHOURRATE(code, &data, &hour), "GETHOURRATE");
  SysFreeString(code);
  if (done) std::printf("day rate %.2f, hour rate %.2f\n", day, hour);
  return done;
}

bool printTax(_HRObject* hr, IDispatch* data) {
  constexpr DATE kSigned = 43831;   // 2020-01-01
  constexpr DATE kPayDate = 46053;  // 2026-01-31
  short months = 12;
  CURRENCY reduce = baht(60000);
  CURRENCY studySupport = baht(0);
  CURRENCY donation = baht(500);
  CURRENCY waived = baht(0);
  VARIANT_BOOL fixed = VARIANT_FALSE;
  float tax = 0;
  if (!succeeded(hr->CalcPTAX4(&data, baht(50000), baht(0), kSigned, 0, 0, &months, &reduce,
                               baht(0), &studySupport, &donation, &waived, baht(50000), &fixed,
                               kPayDate, baht(875), &tax),
                 "CalcPTAX4")) {
    return false;
  }
  std::printf("tax %.2f, donation left %.4f\n", static_cast<double>(tax),
              static_cast<double>(donation.int64) / kMoneyScale);
  return true;
}

bool printAll(const wchar_t* database, const wchar_t* employee) {
  _HRObject* hr = nullptr;
  if (!succeeded(CoCreateInstance(CLSID_HRObject, nullptr, CLSCTX_INPROC_SERVER, IID__HRObject,
                                  reinterpret_cast<void**>(&hr)),
                 "KT7HRLib.HRObject")) {
    return false;
  }
  IDispatch* const data = dataObject(database);
  const bool done = data != nullptr && printRates(hr, data, employee) && printTax(hr, data);
  if (data != nullptr) data->Release();
  hr->Release();
  return done;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 3) {
    std::fputs("usage: vtable_client DATABASE EMPLOYEE\n", stderr);
    return 2;
  }
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const bool done = printAll(arguments[1], arguments[2]);
  CoUninitialize();
  return done ? 0 : 1;
}
