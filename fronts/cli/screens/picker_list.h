#pragma once

#include <string>

#include <kt7/contract/data_tool.h>
#include "picker_model.h"

namespace kt7::screens {

/// The question behind a picker: its columns and, where it is not among them, its key, off the
/// source; date markers are resolved.
std::string pickerStatement(const PickerRequest& request);

/// Reads the whole list of a picker. A column of kind 13 shows a number as the name that stands at
/// that place, counted from 0, after the semicolons of its header; a number without a name and
/// every other kind are shown as they are. A database error where the source cannot be read.
PickerList readPickerList(const PickerRequest& request, const std::string& connectionString,
                          bool multiSelect);

}  // namespace kt7::screens
