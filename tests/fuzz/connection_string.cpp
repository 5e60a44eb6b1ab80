#include "host/data/session/connection_string.h"

#include "base/text.h"
#include "door.h"
#include "host/data/contract/database.h"

namespace kt7::fuzz {

namespace {

/// Whatever stands around it, a password is not shown.
void hidesPassword(std::string_view before, std::string_view after) {
  constexpr const char* kPasswords[] = {"{;S3}}cret}", "{S3}", " =S3cret "};
  const std::string whole =
      std::string(before) +
      ";Pwd=" + kPasswords[(before.size() + after.size()) % std::size(kPasswords)] + ";" +
      std::string(after);
  const std::string shown = data::shownConnectionString(whole);
  require(shown.find("S3") == std::string::npos, "a password is not shown", shown);
}

void losesOnlyWhatIsTaken(const data::ConnectionString& whole) {
  const auto left = unlessRefused(
      [&] { return data::ConnectionString(whole.textWithout("Driver", whole.driver())); });
  require(left.has_value(), "a text without one of its parts can still be read");
  for (const char* keyword : {"Database", "Uid", "Pwd", "Server", "Port", "SslMode"}) {
    require(left->value(keyword) == whole.value(keyword), "the other parts stay", keyword);
  }
}

}  // namespace

void enter(std::string_view text) {
  if (text.find("S3") == std::string_view::npos) {
    const std::size_t before =
        text.empty() ? 0 : text.size() * (static_cast<unsigned char>(text[0]) % 3) / 2;
    hidesPassword(text.substr(0, before), text.substr(before));
  }
  const auto read = unlessRefused([&] { return data::ConnectionString(text); });
  if (read) losesOnlyWhatIsTaken(*read);
}

}  // namespace kt7::fuzz
