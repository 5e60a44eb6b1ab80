#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What a text must be like before it is kept, on every engine alike.
namespace kt7::schema {

/// Why an engine would not keep the text in a column of that length: "is longer than 60
/// characters", "is not UTF-8 text". None for a text that every engine keeps.
std::optional<std::string> whyUnkept(const std::string& text, int length);

/// Why a kept text cannot be a code or a name in one line: "holds a control character", and so for
/// everything else that is not seen as it stands, and for the marker of dates in statements. Null
/// for one that can.
const char* whyUnplain(std::string_view text);

/// The same for a code, which statements carry as it stands between quotes.
const char* whyNoCode(std::string_view text);

}  // namespace kt7::schema
