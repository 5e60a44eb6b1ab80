#include <kt7/roles/picker.h>

#include <kt7/error.h>
#include "base/text.h"

namespace kt7::roles {

Picker pickAlways(const std::vector<std::string>& keys) {
  return [answer = joined(keys, ",")](const PickerRequest&, const std::string&, bool) {
    return answer;
  };
}

Picker pickNever() {
  return [](const PickerRequest& request, const std::string&, bool) -> std::string {
    raiseCollaborator(error_number::kCallFailed, "nobody can answer the picker '" + request.title +
                                                     "', which asks for " + request.key +
                                                     ": set a picker on the host's platform");
  };
}

}  // namespace kt7::roles
