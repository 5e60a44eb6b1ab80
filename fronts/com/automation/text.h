#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// Texts are UTF-8 in the library and UTF-16 in every automation call. Half a surrogate pair, which
/// a host's text may hold, comes back as it went in.
namespace kt7::automation {

std::wstring toWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);

/// A null BSTR is the empty text.
std::wstring_view viewOf(BSTR text);
/// A new BSTR that the receiver frees; raises std::bad_alloc.
BSTR newBstr(std::string_view utf8);
BSTR newBstr(std::wstring_view wide);

/// A BSTR of the caller's own, for the length of a call.
class BstrText {
 public:
  explicit BstrText(std::string_view utf8) : text_(newBstr(utf8)) {}
  BstrText(const BstrText&) = delete;
  BstrText& operator=(const BstrText&) = delete;
  ~BstrText() { SysFreeString(text_); }

  operator BSTR() const { return text_; }
  BSTR* address() { return &text_; }

 private:
  BSTR text_;
};

/// ASCII letters only, as names of members and parameters are compared.
bool equalNoCase(std::wstring_view a, std::wstring_view b);

}  // namespace kt7::automation
