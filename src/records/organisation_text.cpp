#include "records/organisation_text.h"

#include "base/text.h"

namespace kt7::records {

OrganisationText parseOrganisationText(std::string_view text) {
  const std::vector<std::string> pieces = split(text, '=');
  const auto piece = [&](std::size_t index, const std::string& fallback) {
    return index < pieces.size() ? pieces[index] : fallback;
  };
  OrganisationText parsed;
  parsed.code = pieces[0];
  parsed.name = piece(1, parsed.code);
  parsed.name2 = piece(2, parsed.name);
  parsed.docCode = piece(3, "");
  return parsed;
}

}  // namespace kt7::records
