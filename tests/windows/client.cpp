#include "client.h"

#include <array>

#include "fronts/com/automation/text.h"

namespace kt7::client {

Library::Library(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
  std::array<wchar_t, MAX_PATH> whole{};
  GetModuleFileNameW(module_, whole.data(), static_cast<DWORD>(whole.size()));
  path_ = whole.data();
}

HRESULT Library::install(bool install, const wchar_t* scope) const {
  return entry<HRESULT(WINAPI*)(BOOL, const wchar_t*)>("DllInstall")(install, scope);
}

HRESULT Library::canUnload() const { return entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }

ErrorText takeErrorText() {
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, &information) != S_OK) return {};
  BSTR text = nullptr;
  BSTR source = nullptr;
  information->GetDescription(&text);
  information->GetSource(&source);
  ErrorText taken{automation::toUtf8(automation::viewOf(text)),
                  automation::toUtf8(automation::viewOf(source))};
  SysFreeString(text);
  SysFreeString(source);
  return taken;
}

Outcome call(IDispatch* object, std::wstring member, std::vector<VARIANT> arguments,
             std::vector<std::wstring> names, WORD flags) {
  std::vector<LPOLESTR> asked{member.data()};
  for (std::wstring& name : names) asked.push_back(name.data());
  std::vector<DISPID> ids(asked.size());
  Outcome outcome;
  outcome.status = object->GetIDsOfNames(IID_NULL, asked.data(), static_cast<UINT>(asked.size()),
                                         LOCALE_USER_DEFAULT, ids.data());
  if (FAILED(outcome.status)) return outcome;
  const std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  // The names stand in the order of the reversed arguments.
  const std::vector<DISPID> named(ids.rbegin(), ids.rend() - 1);
  DISPPARAMS parameters{const_cast<VARIANT*>(reversed.data()), const_cast<DISPID*>(named.data()),
                        static_cast<UINT>(reversed.size()), static_cast<UINT>(named.size())};
  EXCEPINFO exception{};
  outcome.status = object->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                  outcome.answer.out(), &exception, nullptr);
  outcome.scode = exception.scode;
  outcome.text = automation::toUtf8(automation::viewOf(exception.bstrDescription));
  outcome.source = automation::toUtf8(automation::viewOf(exception.bstrSource));
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  return outcome;
}

}  // namespace kt7::client
