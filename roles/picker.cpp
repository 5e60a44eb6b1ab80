#include <kt7/roles/picker.h>

#include <kt7/error.h>

namespace kt7::roles {

Picker pickAlways(const std::vector<std::string>& keys) {
  std::string answer;
  for (const std::string& key : keys) {
    if (&key != &keys.front()) answer += ',';
    answer += key;
  }
  return [answer](const PickerRequest&, const std::string&, bool) { return answer; };
}

Picker pickNever() {
  return [](const PickerRequest& request, const std::string&, bool) -> std::string {
    raiseCollaborator(error_number::kCallFailed, "nobody can answer the picker '" + request.title +
                                                     "', which asks for " + request.key +
                                                     ": set a picker on the host's platform");
  };
}

}  // namespace kt7::roles
