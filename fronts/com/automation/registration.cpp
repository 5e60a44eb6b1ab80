#include "fronts/com/automation/registration.h"

#include <windows.h>

#include <array>
#include <new>
#include <vector>

#include "fronts/com/automation/class_registry.h"
#include "fronts/com/automation/module.h"

namespace kt7::automation {

namespace {

// The platform's own marshaller of dual interfaces.
constexpr const wchar_t* kAutomationMarshaller = L"{00020424-0000-0000-C000-000000000046}";
// Below a version of a type library, where the library of each kind lies.
constexpr const wchar_t* kPlatforms = L"\\0";
constexpr const wchar_t* kOwnPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";

std::wstring guidText(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

HKEY rootOf(RegistrationScope scope) {
  return scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

/// A value below Software\Classes.
struct Entry {
  std::wstring key;
  std::wstring value;
  std::wstring name = {};  // of the value; the default one without it
};

using Entries = std::vector<Entry>;

std::wstring progIdWithVersion(const RegisteredClass& registered) {
  return std::wstring(registered.progId) + L".1";
}

std::wstring classKey(const RegisteredClass& registered) {
  return L"CLSID\\" + guidText(registered.id);
}

std::wstring interfaceKey(const RegisteredInterface& dual) {
  return L"Interface\\" + guidText(dual.id);
}

std::wstring libraryKey(const RegisteredTypeLibrary& library) {
  return L"TypeLib\\" + guidText(library.id);
}

std::wstring versionKey(const RegisteredTypeLibrary& library) {
  return libraryKey(library) + L"\\" + std::wstring(library.version);
}

void addClass(Entries& entries, const RegisteredClass& registered, const Registered& module) {
  const std::wstring id = guidText(registered.id);
  const std::wstring key = classKey(registered);
  const std::wstring server = key + L"\\InprocServer32";
  const std::wstring versioned = progIdWithVersion(registered);
  const std::wstring unversioned(registered.progId);
  const std::wstring description(registered.description);
  entries.push_back({key, description});
  entries.push_back({server, modulePath()});
  entries.push_back({server, L"Apartment", L"ThreadingModel"});
  entries.push_back({key + L"\\ProgID", versioned});
  entries.push_back({key + L"\\VersionIndependentProgID", unversioned});
  entries.push_back({key + L"\\Programmable", L""});
  if (module.typeLibrary) {
    entries.push_back({key + L"\\TypeLib", guidText(module.typeLibrary->id)});
    entries.push_back({key + L"\\Version", std::wstring(module.typeLibrary->version)});
  }
  entries.push_back({versioned, description});
  entries.push_back({versioned + L"\\CLSID", id});
  entries.push_back({unversioned, description});
  entries.push_back({unversioned + L"\\CLSID", id});
  entries.push_back({unversioned + L"\\CurVer", versioned});
}

void addTypeLibrary(Entries& entries, const RegisteredTypeLibrary& library) {
  const std::wstring id = guidText(library.id);
  const std::wstring version(library.version);
  const std::wstring key = versionKey(library);
  const std::wstring path = modulePath();
  const std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
  entries.push_back({libraryKey(library), L""});
  entries.push_back({key, std::wstring(library.description)});
  entries.push_back({key + kPlatforms, L""});
  entries.push_back({key + kPlatforms + L"\\" + kOwnPlatform, path});
  entries.push_back({key + L"\\FLAGS", L"0"});
  entries.push_back({key + L"\\HELPDIR", folder});
  for (const RegisteredInterface& dual : library.interfaces) {
    const std::wstring own = interfaceKey(dual);
    entries.push_back({own, std::wstring(dual.name)});
    entries.push_back({own + L"\\ProxyStubClsid32", kAutomationMarshaller});
    entries.push_back({own + L"\\TypeLib", id});
    entries.push_back({own + L"\\TypeLib", version, L"Version"});
  }
}

Entries entriesOf(const Registered& registered) {
  Entries entries;
  for (const RegisteredClass& one : registered.classes) addClass(entries, one, registered);
  if (registered.typeLibrary) addTypeLibrary(entries, *registered.typeLibrary);
  return entries;
}

/// What removeAll takes away: the keys of this kind, and of what both kinds share as much as the
/// other one does not need.
std::vector<std::wstring> ownKeys(const Registered& registered) {
  std::vector<std::wstring> keys;
  for (const RegisteredClass& one : registered.classes) keys.push_back(classKey(one));
  if (registered.typeLibrary) {
    for (const auto& dual : registered.typeLibrary->interfaces) keys.push_back(interfaceKey(dual));
    keys.push_back(versionKey(*registered.typeLibrary) + kPlatforms + L"\\" + kOwnPlatform);
  }
  return keys;
}

std::vector<std::wstring> unneededKeys(const Registered& registered,
                                       const ClassRegistry& registry) {
  std::vector<std::wstring> keys;
  for (const RegisteredClass& one : registered.classes) {
    if (registry.otherKindHas(classKey(one))) continue;
    keys.push_back(progIdWithVersion(one));
    keys.emplace_back(one.progId);
  }
  if (registered.typeLibrary) {
    const std::wstring version = versionKey(*registered.typeLibrary);
    if (!registry.hasSubkeys(version + kPlatforms)) keys.push_back(version);
  }
  return keys;
}

HRESULT removeAll(ClassRegistry registry, const Registered& registered) {
  HRESULT result = S_OK;
  const auto remove = [&](const std::wstring& key) {
    const LSTATUS status = registry.remove(key);
    if (status != ERROR_SUCCESS) result = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
  };
  for (const std::wstring& key : ownKeys(registered)) remove(key);
  for (const std::wstring& key : unneededKeys(registered, registry)) remove(key);
  if (registered.typeLibrary) {
    const std::wstring library = libraryKey(*registered.typeLibrary);
    if (!registry.hasSubkeys(library)) remove(library);
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

}  // namespace

HRESULT registerModule(const Registered& registered, RegistrationScope scope) noexcept {
  return withMemory([&] {
    ClassRegistry registry(rootOf(scope));
    for (const Entry& entry : entriesOf(registered)) {
      const LSTATUS status = registry.write(entry.key, entry.value, entry.name);
      if (status == ERROR_SUCCESS) continue;
      registry.undo();
      return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    }
    return S_OK;
  });
}

HRESULT unregisterModule(const Registered& registered, RegistrationScope scope) noexcept {
  return withMemory([&] { return removeAll(ClassRegistry(rootOf(scope)), registered); });
}

HRESULT installModule(const Registered& registered, bool install, const wchar_t* scope) noexcept {
  const std::wstring_view word = scope != nullptr ? scope : L"";
  if (word != L"user" && word != L"machine" && !word.empty()) return E_INVALIDARG;
  const auto where = word == L"user" ? RegistrationScope::User : RegistrationScope::Machine;
  return install ? registerModule(registered, where) : unregisterModule(registered, where);
}

std::wstring registrySetting(const wchar_t* key, const wchar_t* name, std::wstring_view fallback) {
  for (HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    const auto text = textAt(root, key, name);
    if (text && !text->empty()) return *text;
  }
  return std::wstring(fallback);
}

}  // namespace kt7::automation
