#pragma once
// The user font: the size and typeface the launcher asks for on the command line, applied by
// every screen when it loads.

#include <cstdint>
#include <string>

class QWidget;

namespace rd {

struct UserFont {
    std::int16_t size = 0; // point size; 0 leaves the designed size
    std::string name;      // code-page typeface name; empty leaves the designed typeface
};

// Set once at start-up, before the first screen loads.
void setUserFont(const UserFont& font);
const UserFont& userFont();

// Applies the user font to every control of `screen`, except horizontal scroll bars and menu
// entries (timers and image lists are not controls here). Size and name apply independently.
// Sizes that are not positive are left alone: no control can carry them.
void applyUserFont(QWidget* screen);

} // namespace rd
