#include "windows.h"

#include "picker_layout.h"
#include "picker_list.h"
#include "terminal.h"

namespace kt7::screens {

std::string pickOnTerminal(const PickerRequest& request, const std::string& connectionString,
                           bool multiSelect) {
  PickerModel model(readPickerList(request, connectionString, multiSelect));
  Terminal terminal;
  PickerState state = PickerState::Open;
  while (state == PickerState::Open) {
    terminal.show(pickerScreen(model, terminal.size()));
    state = model.press(terminal.read());
  }
  return state == PickerState::Chosen ? model.answer() : "";
}

void showOnTerminal(const std::string& text) {
  Terminal terminal;
  terminal.dropTypedAhead();
  Key key{KeyKind::Resize, ""};
  while (key.kind == KeyKind::Resize) {
    terminal.show(messageScreen(text, terminal.size()));
    key = terminal.read();
  }
}

}  // namespace kt7::screens
