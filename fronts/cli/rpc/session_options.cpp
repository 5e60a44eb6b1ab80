#include "fronts/cli/rpc/session_options.h"

#include <kt7/error.h>

namespace kt7::cli {

namespace {

std::string refuseToPick(const PickerRequest& request, const std::string&, bool) {
  raiseCollaborator(error_number::kCallFailed,
                    "nobody can answer the picker '" + request.title + "': give the values of " +
                        request.key + " with --pick, or set a picker on the host's platform");
}

}  // namespace

SessionOptions sessionOptions(const DatabaseOptions& database, const WorkplaceOptions& workplace,
                              Console& console) {
  SessionOptions options;
  options.connectionString = database.connectionString();
  options.now = database.clock();
  options.user = workplace.user;
  options.branch = workplace.branch;
  options.pick = workplace.pick;
  options.picker = console.picker ? console.picker : refuseToPick;
  options.showMessage = console.messageView;
  if (!options.showMessage) {
    options.showMessage = [&console](const std::string& text) { say(console, text); };
  }
  return options;
}

}  // namespace kt7::cli
