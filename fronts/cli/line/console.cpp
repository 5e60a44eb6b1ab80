#include "fronts/cli/line/console.h"

#include <ostream>

#include "fronts/common/display_text.h"

namespace kt7::cli {

void say(Console& console, const std::string& text) {
  console.err << "kt7hr: " << screens::oneLine(text) << std::endl;
}

}  // namespace kt7::cli
