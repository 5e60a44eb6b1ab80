#include "fronts/com/automation/text.h"

#include <algorithm>
#include <new>

namespace kt7::automation {

namespace {

wchar_t lowered(wchar_t letter) {
  return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
}

}  // namespace

std::wstring toWide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

std::string toUtf8(std::wstring_view wide) {
  const int units = static_cast<int>(wide.size());
  // A unit of UTF-16 takes three bytes at most.
  std::string utf8(wide.size() * 3, '\0');
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(),
                                        static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(bytes));
  return utf8;
}

std::wstring_view viewOf(BSTR text) {
  return text == nullptr ? std::wstring_view() : std::wstring_view(text, SysStringLen(text));
}

BSTR newBstr(std::wstring_view wide) {
  BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (text == nullptr) throw std::bad_alloc();
  return text;
}

BSTR newBstr(std::string_view utf8) { return newBstr(std::wstring_view(toWide(utf8))); }

bool equalNoCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t left, wchar_t right) { return lowered(left) == lowered(right); });
}

}  // namespace kt7::automation
