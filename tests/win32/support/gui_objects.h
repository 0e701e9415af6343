#pragma once

#include <ostream>

/// How many objects of the window system this program holds.
struct GuiObjects {
    int windows = 0;
    int menus = 0;
    int drawing = 0; ///< fonts, bitmaps, brushes, device contexts; icons and image lists through their bitmaps
    bool operator==(const GuiObjects&) const = default;
};

[[nodiscard]] GuiObjects count_gui_objects();

void PrintTo(const GuiObjects& objects, std::ostream* out);
