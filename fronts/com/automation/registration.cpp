#include "fronts/com/automation/registration.h"

#include <windows.h>

#include <array>
#include <new>

#include "fronts/com/automation/module.h"

namespace kt7::automation {

namespace {

constexpr std::wstring_view kClasses = L"Software\\Classes\\";
// The platform's own marshaller of dual interfaces.
constexpr std::wstring_view kAutomationMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr std::wstring_view kPlatformName = sizeof(void*) == 8 ? L"win64" : L"win32";

std::wstring guidText(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

HKEY rootOf(RegistrationScope scope) {
  return scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

/// One key below Software\Classes and its default value.
struct Entry {
  std::wstring key;
  std::wstring value;
  std::wstring_view name = {};  // of the value; the default one without it
};

/// The keys of a module in the order of writing; `roots` are removed with all below them.
struct Entries {
  std::vector<Entry> values;
  std::vector<std::wstring> roots;
};

std::wstring progIdWithVersion(const RegisteredClass& registered) {
  return std::wstring(registered.progId) + L".1";
}

void addClass(Entries& entries, const RegisteredClass& registered, const Registered& module) {
  const std::wstring id = guidText(registered.id);
  const std::wstring key = L"CLSID\\" + id;
  const std::wstring server = key + L"\\InprocServer32";
  const std::wstring versioned = progIdWithVersion(registered);
  const std::wstring unversioned(registered.progId);
  const std::wstring description(registered.description);
  entries.values.push_back({key, description});
  entries.values.push_back({server, modulePath()});
  entries.values.push_back({server, L"Apartment", L"ThreadingModel"});
  entries.values.push_back({key + L"\\ProgID", versioned});
  entries.values.push_back({key + L"\\VersionIndependentProgID", unversioned});
  entries.values.push_back({key + L"\\Programmable", L""});
  if (module.typeLibrary) {
    entries.values.push_back({key + L"\\TypeLib", guidText(module.typeLibrary->id)});
    entries.values.push_back({key + L"\\Version", std::wstring(module.typeLibrary->version)});
  }
  entries.values.push_back({versioned, description});
  entries.values.push_back({versioned + L"\\CLSID", id});
  entries.values.push_back({unversioned, description});
  entries.values.push_back({unversioned + L"\\CLSID", id});
  entries.values.push_back({unversioned + L"\\CurVer", versioned});
  entries.roots.insert(entries.roots.end(), {key, versioned, unversioned});
}

void addTypeLibrary(Entries& entries, const RegisteredTypeLibrary& library) {
  const std::wstring id = guidText(library.id);
  const std::wstring version(library.version);
  const std::wstring key = L"TypeLib\\" + id + L"\\" + version;
  const std::wstring path = modulePath();
  const std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
  entries.values.push_back({key, std::wstring(library.description)});
  entries.values.push_back({key + L"\\0\\" + std::wstring(kPlatformName), path});
  entries.values.push_back({key + L"\\FLAGS", L"0"});
  entries.values.push_back({key + L"\\HELPDIR", folder});
  entries.roots.push_back(L"TypeLib\\" + id);
  for (const RegisteredInterface& dual : library.interfaces) {
    const std::wstring interfaceKey = L"Interface\\" + guidText(dual.id);
    entries.values.push_back({interfaceKey, std::wstring(dual.name)});
    entries.values.push_back(
        {interfaceKey + L"\\ProxyStubClsid32", std::wstring(kAutomationMarshaller)});
    entries.values.push_back({interfaceKey + L"\\TypeLib", id});
    entries.values.push_back({interfaceKey + L"\\TypeLib", version, L"Version"});
    entries.roots.push_back(interfaceKey);
  }
}

Entries entriesOf(const Registered& registered) {
  Entries entries;
  for (const RegisteredClass& one : registered.classes) addClass(entries, one, registered);
  if (registered.typeLibrary) addTypeLibrary(entries, *registered.typeLibrary);
  return entries;
}

LSTATUS write(HKEY root, const Entry& entry) {
  HKEY key = nullptr;
  const std::wstring path = std::wstring(kClasses) + entry.key;
  LSTATUS status =
      RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
  if (status != ERROR_SUCCESS) return status;
  status = RegSetValueExW(key, entry.name.empty() ? nullptr : entry.name.data(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(entry.value.c_str()),
                          static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(key);
  return status;
}

HRESULT removeAll(HKEY root, const Entries& entries) {
  HRESULT result = S_OK;
  for (const std::wstring& key : entries.roots) {
    const LSTATUS status = RegDeleteTreeW(root, (std::wstring(kClasses) + key).c_str());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
      result = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    }
  }
  return result;
}

template <typename Work>
HRESULT withMemory(Work work) noexcept {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

bool readText(HKEY root, const wchar_t* key, const wchar_t* name, std::wstring& text) {
  DWORD bytes = 0;
  if (RegGetValueW(root, key, name, RRF_RT_REG_SZ, nullptr, nullptr, &bytes) != ERROR_SUCCESS) {
    return false;
  }
  text.resize(bytes / sizeof(wchar_t));
  if (RegGetValueW(root, key, name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes) != ERROR_SUCCESS) {
    return false;
  }
  text.resize(text.find(L'\0'));
  return !text.empty();
}

}  // namespace

HRESULT registerModule(const Registered& registered, RegistrationScope scope) noexcept {
  return withMemory([&] {
    const Entries entries = entriesOf(registered);
    for (const Entry& entry : entries.values) {
      const LSTATUS status = write(rootOf(scope), entry);
      if (status == ERROR_SUCCESS) continue;
      removeAll(rootOf(scope), entries);
      return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    }
    return S_OK;
  });
}

HRESULT unregisterModule(const Registered& registered, RegistrationScope scope) noexcept {
  return withMemory([&] { return removeAll(rootOf(scope), entriesOf(registered)); });
}

HRESULT installModule(const Registered& registered, bool install, const wchar_t* scope) noexcept {
  const std::wstring_view word = scope != nullptr ? scope : L"";
  if (word != L"user" && word != L"machine" && !word.empty()) return E_INVALIDARG;
  const auto where = word == L"user" ? RegistrationScope::User : RegistrationScope::Machine;
  return install ? registerModule(registered, where) : unregisterModule(registered, where);
}

std::wstring registrySetting(const wchar_t* key, const wchar_t* name, std::wstring_view fallback) {
  std::wstring text;
  if (readText(HKEY_CURRENT_USER, key, name, text)) return text;
  if (readText(HKEY_LOCAL_MACHINE, key, name, text)) return text;
  return std::wstring(fallback);
}

}  // namespace kt7::automation
