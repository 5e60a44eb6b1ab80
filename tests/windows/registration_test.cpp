#include <array>

#include "checks.h"
#include "client.h"

namespace kt7::client {

namespace {

// The fixed identities, as programs that were compiled against them know them.
constexpr std::array kClassKeys{L"CLSID\\{1957724D-A63F-422B-8482-99C18C3A26CD}",
                                L"CLSID\\{FBDCF381-4280-4FAB-8F73-C49A9ACDCD71}"};
constexpr std::array kOtherKeys{L"KT7HRLib.HRObject",
                                L"KT7HRLib.HRObject.1",
                                L"KT7HRLib.EmployeeObject",
                                L"KT7HRLib.EmployeeObject.1",
                                L"TypeLib\\{53EB9B25-3242-4B77-8716-42C46F4A804E}",
                                L"Interface\\{6CB884B3-7A6B-4907-B892-62154F13C290}",
                                L"Interface\\{B45EA97D-4EAD-4540-960D-72C753401714}"};

bool exists(HKEY root, const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, (L"Software\\Classes\\" + key).c_str(), 0, KEY_READ, &opened) !=
      ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

std::wstring valueOf(HKEY root, const std::wstring& key, const wchar_t* name) {
  std::array<wchar_t, MAX_PATH> text{};
  DWORD bytes = sizeof text;
  RegGetValueW(root, (L"Software\\Classes\\" + key).c_str(), name, RRF_RT_REG_SZ, nullptr,
               text.data(), &bytes);
  return text.data();
}

int keysThere(HKEY root) {
  int there = 0;
  for (const wchar_t* key : kClassKeys) there += exists(root, key) ? 1 : 0;
  for (const wchar_t* key : kOtherKeys) there += exists(root, key) ? 1 : 0;
  return there;
}

constexpr int kAllKeys = kClassKeys.size() + kOtherKeys.size();

void testScope(const Library& library, const wchar_t* scope, HKEY own, HKEY other,
               const char* what) {
  checkStatus(library.install(true, scope), S_OK, what);
  check(keysThere(own) == kAllKeys && keysThere(other) == 0, "registers in its own root alone");
  for (const wchar_t* key : kClassKeys) {
    const std::wstring server = std::wstring(key) + L"\\InprocServer32";
    check(valueOf(own, server, nullptr) == library.path(), "names the path of the DLL");
    check(valueOf(own, server, L"ThreadingModel") == L"Apartment", "states its threading model");
  }
  checkStatus(library.install(false, scope), S_OK, "unregistration");
  check(keysThere(own) == 0, "unregistration leaves no key");
  checkStatus(library.install(false, scope), S_OK, "unregistering what is not there");
}

constexpr std::wstring_view kBelow = L"Software\\Classes\\";
constexpr const wchar_t* kPlatforms = L"TypeLib\\{53EB9B25-3242-4B77-8716-42C46F4A804E}\\1.0\\0\\";
constexpr REGSAM kOtherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

void make(const std::wstring& key, DWORD options, REGSAM view) {
  HKEY made = nullptr;
  RegCreateKeyExW(HKEY_LOCAL_MACHINE, (std::wstring(kBelow) + key).c_str(), 0, nullptr, options,
                  KEY_WRITE | view, nullptr, &made, nullptr);
  RegCloseKey(made);
}

void remove(const std::wstring& key) {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, (std::wstring(kBelow) + key).c_str());
}

/// The DLL of the other kind (32 or 64 bits) is registered too, and is left as it is.
void testOtherKind(const Library& library) {
  const std::wstring other = std::wstring(kPlatforms) + (sizeof(void*) == 8 ? L"win32" : L"win64");
  const std::wstring own = std::wstring(kPlatforms) + (sizeof(void*) == 8 ? L"win64" : L"win32");
  const auto registerOther = [&] {
    for (const wchar_t* key : kClassKeys) make(key, 0, kOtherView);
    make(other, 0, 0);
  };
  registerOther();
  library.install(true, L"machine");
  check(exists(HKEY_LOCAL_MACHINE, own), "the type library of the own kind");
  library.install(false, L"machine");
  check(!exists(HKEY_LOCAL_MACHINE, own) && exists(HKEY_LOCAL_MACHINE, other),
        "the other kind's type library stays");
  check(!exists(HKEY_LOCAL_MACHINE, kClassKeys[0]) &&
            exists(HKEY_LOCAL_MACHINE, L"KT7HRLib.HRObject.1") &&
            exists(HKEY_LOCAL_MACHINE, L"KT7HRLib.EmployeeObject"),
        "the program ids that it uses too stay");

  library.install(true, L"machine");
  for (const wchar_t* key : kClassKeys) {
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (std::wstring(kBelow) + key).c_str(), kOtherView, 0);
  }
  remove(other);
  library.install(false, L"machine");
  check(keysThere(HKEY_LOCAL_MACHINE) == 0, "the last kind leaves no key");
}

/// A key that is gone when the machine starts again takes no lasting one below it: the registration
/// fails there.
void testHalfWay(const Library& library) {
  const std::wstring last = kOtherKeys.back();
  const HRESULT refused = HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE);
  make(last, REG_OPTION_VOLATILE, 0);
  checkStatus(library.install(true, L"machine"), refused, "a key that cannot be written");
  check(keysThere(HKEY_LOCAL_MACHINE) == 1, "leaves nothing that was not there");
  remove(last);

  library.install(true, L"machine");
  remove(last);
  make(last, REG_OPTION_VOLATILE, 0);
  const std::wstring server = std::wstring(kClassKeys[0]) + L"\\InprocServer32";
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, (std::wstring(kBelow) + server).c_str(), nullptr, REG_SZ,
                  L"before.dll", 22);
  checkStatus(library.install(true, L"machine"), refused, "a key that cannot be written");
  check(keysThere(HKEY_LOCAL_MACHINE) == kAllKeys &&
            valueOf(HKEY_LOCAL_MACHINE, server, nullptr) == L"before.dll",
        "an earlier registration stands");
  library.install(false, L"machine");
}

}  // namespace

void testRegistration(const Library& library) {
  library.install(false, L"user");
  library.install(false, L"machine");
  testScope(library, L"user", HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, "for the user");
  testScope(library, L"machine", HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER, "for the machine");
  testOtherKind(library);
  testHalfWay(library);
  checkStatus(library.install(true, L"everybody"), E_INVALIDARG, "an unknown scope");
  checkStatus(library.entry<HRESULT(WINAPI*)()>("DllRegisterServer")(), S_OK, "DllRegisterServer");
  check(keysThere(HKEY_LOCAL_MACHINE) == kAllKeys, "DllRegisterServer is for the machine");
  CLSID found{};
  CLSIDFromProgID(L"KT7HRLib.EmployeeObject", &found);
  check(IsEqualCLSID(found, __uuidof(EmployeeObject)), "the program id leads to the class");
  check(create<IDispatch>(__uuidof(HRObject)) != nullptr, "a registered class is creatable");
}

}  // namespace kt7::client
