#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kt7::automation {

/// For every user of the machine, which takes an administrator, or for the current user alone.
enum class RegistrationScope { Machine, User };

/// A class as the registry knows it. Its threading model is Apartment: an object is called on the
/// thread that made it, and the platform carries calls from other threads there.
struct RegisteredClass {
  CLSID id;
  std::wstring_view progId;  // without a version
  std::wstring_view description;
};

struct RegisteredInterface {
  IID id;
  std::wstring_view name;
};

struct RegisteredTypeLibrary {
  GUID id;
  std::wstring_view version;  // "1.0"
  std::wstring_view description;
  std::vector<RegisteredInterface> interfaces;
};

struct Registered {
  std::span<const RegisteredClass> classes;
  std::optional<RegisteredTypeLibrary> typeLibrary;  // the one in this module
};

/// Writes the keys of this module below Software\Classes. Where one cannot be written, what stood
/// there before stands again.
HRESULT registerModule(const Registered& registered, RegistrationScope scope) noexcept;
/// Removes what registerModule wrote, but for what a DLL of the other kind (32 or 64 bits) has
/// registered too. Keys that are not there are no error.
HRESULT unregisterModule(const Registered& registered, RegistrationScope scope) noexcept;

/// The body of DllInstall: "user" registers for the current user, "" and "machine" for the machine.
HRESULT installModule(const Registered& registered, bool install, const wchar_t* scope) noexcept;

/// The text of a setting of this product: HKEY_CURRENT_USER first, then HKEY_LOCAL_MACHINE, below
/// `key`; `fallback` where neither has it.
std::wstring registrySetting(const wchar_t* key, const wchar_t* name, std::wstring_view fallback);

}  // namespace kt7::automation
