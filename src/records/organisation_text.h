#pragma once

#include <string>
#include <string_view>

namespace kt7::records {

/// An organisation text: code, code=name, code=name=name2 or code=name=name2=doccode. What is left
/// out falls back: name to the code, name2 to the name, doccode to "". Nothing is trimmed.
struct OrganisationText {
  std::string code;
  std::string name;
  std::string name2;
  std::string docCode;
};

OrganisationText parseOrganisationText(std::string_view text);

}  // namespace kt7::records
