#pragma once

#include <vector>

#include "picker_model.h"
#include "screen.h"

namespace kt7::screens {

/// Cells shared out in proportion to the weights, all of them; a column with a weight gets at least
/// one cell as long as there are enough.
std::vector<int> columnWidths(const std::vector<int>& weights, int cells);

/// The whole screen of a picker, top to bottom: title, search text, headers, rows, keys. Scrolls
/// the model so that its cursor is seen.
std::vector<ScreenLine> pickerScreen(PickerModel& model, ScreenSize size);

/// The message in a frame in the middle of the screen, with the key that takes it away.
std::vector<ScreenLine> messageScreen(std::string_view text, ScreenSize size);

}  // namespace kt7::screens
