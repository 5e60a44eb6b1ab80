#include "roles/texts/number_text.h"

#include "base/number_text.h"

namespace kt7::roles {

double numberInText(std::string_view text) { return writtenNumber(text).value_or(0); }

}  // namespace kt7::roles
