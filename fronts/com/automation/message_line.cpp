#include "fronts/com/automation/message_line.h"

#include <windows.h>

#include <algorithm>

#include "fronts/com/automation/text.h"

namespace kt7::automation {

namespace {

bool isControl(wchar_t unit) { return unit < L' ' || (unit >= L'\x7F' && unit <= L'\x9F'); }

}  // namespace

void writeOneLine(std::wstring text) {
  std::replace_if(text.begin(), text.end(), isControl, L' ');
  text += L"\r\n";
  OutputDebugStringW(text.c_str());
  const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
  DWORD written = 0;
  if (WriteConsoleW(errors, text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
    return;
  const std::string utf8 = toUtf8(text);
  WriteFile(errors, utf8.data(), static_cast<DWORD>(utf8.size()), &written, nullptr);
}

}  // namespace kt7::automation
