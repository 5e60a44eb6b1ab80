#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Texts as a terminal shows them, in cells: a Thai vowel or tone mark above or below a letter
/// takes none, a letter one, a wide character two.
namespace kt7::screens {

/// The text in one line of well-formed UTF-8, as it may be written to a terminal: control
/// characters and those that turn the direction of writing become blanks, broken bytes the
/// replacement character.
std::string oneLine(std::string_view text);

/// Escapes for JSON ("\\u009b") what oneLine would make a blank, but for line breaks. Other than in
/// its texts a JSON text has none of them.
void escapeUnprintable(std::string& json);

/// Cells that a one-line text takes.
int displayWidth(std::string_view text);

/// The text in exactly that many cells: filled with blanks, or cut with "…" at the end. Marks stay
/// with their letter.
std::string fitted(std::string_view text, int width);

/// The text in lines of at most that many cells (at least 2), broken at line breaks, at blanks, and
/// inside a word that is longer than a line.
std::vector<std::string> wrapped(std::string_view text, int width);

/// The form in which two texts are alike when a person searches: without regard to letter case and
/// to how a character is put together.
std::string searchForm(std::string_view text);

/// Takes the last character off, a mark before its letter.
void eraseLastCharacter(std::string& text);

}  // namespace kt7::screens
