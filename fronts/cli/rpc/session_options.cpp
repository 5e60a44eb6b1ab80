#include "fronts/cli/rpc/session_options.h"

namespace kt7::cli {

SessionOptions sessionOptions(const DatabaseOptions& database, const WorkplaceOptions& workplace,
                              Console& console) {
  SessionOptions options;
  options.connectionString = database.connectionString();
  options.now = database.clock();
  options.user = workplace.user;
  options.branch = workplace.branch;
  options.pick = workplace.pick;
  options.picker = console.picker;
  options.showMessage = console.messageView;
  if (!options.showMessage) {
    options.showMessage = [&console](const std::string& text) { say(console, text); };
  }
  return options;
}

}  // namespace kt7::cli
