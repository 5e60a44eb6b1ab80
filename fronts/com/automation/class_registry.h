#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace kt7::automation {

/// A text value of a key, the default one without a name; nothing where there is none.
std::optional<std::wstring> textAt(HKEY root, const std::wstring& key, const wchar_t* name);

/// The keys below Software\Classes of a root. On 64-bit Windows programs of 32 and of 64 bits see
/// classes and interfaces of their own and share everything else.
class ClassRegistry {
 public:
  explicit ClassRegistry(HKEY root) : root_(root) {}

  bool has(const std::wstring& key) const { return opens(key, 0); }
  /// Whether programs of the other kind see a key, where kinds see their own.
  bool otherKindHas(const std::wstring& key) const;
  bool hasSubkeys(const std::wstring& key) const;

  /// Writes a text, the default value where `name` is empty.
  LSTATUS write(const std::wstring& key, const std::wstring& text, const std::wstring& name);
  /// Puts back what stood where this object wrote.
  void undo();
  /// Removes a key with all below it; one that is not there is no error.
  LSTATUS remove(const std::wstring& key) const;

 private:
  struct Written {
    std::wstring key;
    std::wstring name;
    bool keyIsNew;
    std::optional<std::wstring> before;
  };
  static std::wstring pathOf(const std::wstring& key) { return L"Software\\Classes\\" + key; }
  bool opens(const std::wstring& key, REGSAM view) const;

  HKEY root_;
  std::vector<Written> written_;
};

}  // namespace kt7::automation
