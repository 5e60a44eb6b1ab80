#pragma once

#include <string>

#include <kt7/contract/data_tool.h>

/// Windows over the whole terminal, for a host whose user sits at one.
namespace kt7::screens {

/// A host's picker: shows the list of the request and answers what the person picks, key values
/// joined by ","; "" for nothing. A database error where the list cannot be read.
std::string pickOnTerminal(const PickerRequest& request, const std::string& connectionString,
                           bool multiSelect);

/// A host's message view: shows the text until a key is pressed.
void showOnTerminal(const std::string& text);

}  // namespace kt7::screens
