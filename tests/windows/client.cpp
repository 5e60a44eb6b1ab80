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

}  // namespace kt7::client
