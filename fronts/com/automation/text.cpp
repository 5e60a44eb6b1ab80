#include "fronts/com/automation/text.h"

#include <algorithm>
#include <new>

namespace kt7::automation {

namespace {

wchar_t lowered(wchar_t letter) {
  return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
}

std::wstring wholeToWide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

std::string wholeToUtf8(std::wstring_view wide) {
  const int units = static_cast<int>(wide.size());
  // A unit of UTF-16 takes three bytes at most.
  std::string utf8(wide.size() * 3, '\0');
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(),
                                        static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(bytes));
  return utf8;
}

// Half of a surrogate pair is no character, and the system would replace it. In UTF-8 it is written
// as the three bytes that its number would have, ED A0 80 to ED BF BF, which no valid text holds.
constexpr std::size_t kBytesOfHalf = 3;
constexpr unsigned kLowSixBits = 0x3F;

std::string bytesOfHalf(wchar_t half) {
  return {'\xED', static_cast<char>(0x80U | ((half >> 6U) & kLowSixBits)),
          static_cast<char>(0x80U | (half & kLowSixBits))};
}

wchar_t halfAt(std::string_view utf8, std::size_t at) {
  const auto bits = [&](std::size_t byte) {
    return static_cast<unsigned char>(utf8[byte]) & kLowSixBits;
  };
  return static_cast<wchar_t>(0xD000U | (bits(at + 1) << 6U) | bits(at + 2));
}

/// Where the first half stands that is written in three bytes, npos for none.
std::size_t halfIn(std::string_view utf8) {
  std::size_t at = utf8.find('\xED');
  while (at != utf8.npos && (utf8.size() - at < kBytesOfHalf || utf8[at + 1] < '\xA0' ||
                             utf8[at + 1] > '\xBF' || utf8[at + 2] > '\xBF')) {
    at = utf8.find('\xED', at + 1);
  }
  return at;
}

/// Where the first half stands that has no other half beside it, npos for none.
std::size_t halfIn(std::wstring_view wide) {
  for (std::size_t at = 0; at < wide.size(); ++at) {
    if (!IS_HIGH_SURROGATE(wide[at]) && !IS_LOW_SURROGATE(wide[at])) continue;
    const bool isPair = at + 1 < wide.size() && IS_SURROGATE_PAIR(wide[at], wide[at + 1]);
    if (!isPair) return at;
    ++at;
  }
  return wide.npos;
}

}  // namespace

std::wstring toWide(std::string_view utf8) {
  std::wstring wide;
  for (std::size_t at = halfIn(utf8); at != utf8.npos; at = halfIn(utf8)) {
    wide += wholeToWide(utf8.substr(0, at));
    wide += halfAt(utf8, at);
    utf8.remove_prefix(at + kBytesOfHalf);
  }
  return wide + wholeToWide(utf8);
}

std::string toUtf8(std::wstring_view wide) {
  std::string utf8;
  for (std::size_t at = halfIn(wide); at != wide.npos; at = halfIn(wide)) {
    utf8 += wholeToUtf8(wide.substr(0, at));
    utf8 += bytesOfHalf(wide[at]);
    wide.remove_prefix(at + 1);
  }
  return utf8 + wholeToUtf8(wide);
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
