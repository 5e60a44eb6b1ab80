#include "fronts/com/automation/class_registry.h"

namespace kt7::automation {

namespace {

const wchar_t* nameOrDefault(const std::wstring& name) {
  return name.empty() ? nullptr : name.c_str();
}

LSTATUS setText(HKEY key, const std::wstring& name, const std::wstring& text) {
  return RegSetValueExW(key, nameOrDefault(name), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(text.c_str()),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

std::optional<std::wstring> textAt(HKEY root, const std::wstring& key, const wchar_t* name) {
  DWORD bytes = 0;
  if (RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::wstring text(bytes / sizeof(wchar_t), L'\0');
  if (RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  text.resize(text.find(L'\0'));
  return text;
}

bool ClassRegistry::opens(const std::wstring& key, REGSAM view) const {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root_, pathOf(key).c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

bool ClassRegistry::otherKindHas(const std::wstring& key) const {
  return opens(key, sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY);
}

bool ClassRegistry::hasSubkeys(const std::wstring& key) const {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root_, pathOf(key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return false;
  }
  DWORD count = 0;
  RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr,
                   nullptr, nullptr, nullptr);
  RegCloseKey(opened);
  return count > 0;
}

LSTATUS ClassRegistry::write(const std::wstring& key, const std::wstring& text,
                             const std::wstring& name) {
  Written written{key, name, false, textAt(root_, pathOf(key), nameOrDefault(name))};
  HKEY opened = nullptr;
  DWORD disposition = 0;
  LSTATUS status = RegCreateKeyExW(root_, pathOf(key).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                   &opened, &disposition);
  if (status != ERROR_SUCCESS) return status;
  written.keyIsNew = disposition == REG_CREATED_NEW_KEY;
  written_.push_back(std::move(written));
  status = setText(opened, name, text);
  RegCloseKey(opened);
  return status;
}

void ClassRegistry::undo() {
  for (; !written_.empty(); written_.pop_back()) {
    const Written& last = written_.back();
    if (last.keyIsNew) {
      remove(last.key);
    } else if (last.before) {
      RegSetKeyValueW(root_, pathOf(last.key).c_str(), nameOrDefault(last.name), REG_SZ,
                      last.before->c_str(),
                      static_cast<DWORD>((last.before->size() + 1) * sizeof(wchar_t)));
    } else {
      RegDeleteKeyValueW(root_, pathOf(last.key).c_str(), nameOrDefault(last.name));
    }
  }
}

LSTATUS ClassRegistry::remove(const std::wstring& key) const {
  const LSTATUS status = RegDeleteTreeW(root_, pathOf(key).c_str());
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

}  // namespace kt7::automation
