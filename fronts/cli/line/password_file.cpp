#include "password_file.h"

#include <utf8proc.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace kt7::cli {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(const std::string& path, const std::string& why) {
  throw std::runtime_error("the password file '" + path + "' that PwdFile names " + why);
}

/// A pipe is as good as a file: `PwdFile=/dev/fd/3`.
void requireReadable(const std::string& path) {
  std::error_code failed;
  const fs::file_status status = fs::status(path, failed);
  if (!fs::exists(status) || fs::is_fifo(status)) return;  // opening it tells
  if (!fs::is_regular_file(status)) refuse(path, "is a folder or a device, not a file");
  constexpr fs::perms kAnybody = fs::perms::others_read | fs::perms::others_write;
  if ((status.permissions() & kAnybody) != fs::perms::none) {
    refuse(path, "is open to everybody on this machine; run: chmod o-rwx '" + path + "'");
  }
}

bool isText(const std::string& line) {
  const auto* const bytes = reinterpret_cast<const utf8proc_uint8_t*>(line.data());
  const auto size = static_cast<utf8proc_ssize_t>(line.size());
  utf8proc_int32_t character = 0;
  for (utf8proc_ssize_t at = 0; at < size;) {
    const utf8proc_ssize_t length = utf8proc_iterate(bytes + at, size - at, &character);
    if (length <= 0 || character == 0) return false;
    at += length;
  }
  return true;
}

}  // namespace

std::string passwordIn(const std::string& path) {
  requireReadable(path);
  std::ifstream file(path, std::ios::binary);
  if (!file) refuse(path, "cannot be read");
  constexpr std::size_t kLongest = 4096;
  std::string line;
  for (char c = 0; file.get(c) && c != '\n';) {
    if (line.size() == kLongest) refuse(path, "begins with a line too long for a password");
    line += c;
  }
  if (file.bad()) refuse(path, "cannot be read");
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.empty()) refuse(path, "begins with an empty line; write the password there");
  if (!isText(line)) refuse(path, "is no UTF-8 text; save it as UTF-8");
  return line;
}

}  // namespace kt7::cli
