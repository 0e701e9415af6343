#include "support/gui_objects.h"

#include <windows.h>

#include <bit>
#include <cstddef>
#include <cstdint>

namespace {

// The low half of a window's or menu's handle is its place in a table and is enough to ask about it.
constexpr std::uintptr_t first_place = 0x20;
constexpr std::uintptr_t last_place = 0xFFFE;

// An entry of the table of drawing objects, which the system maps into every process.
struct DrawingObject {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t generation;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user_pointer;
};
constexpr std::size_t drawing_table_size = 16384;
constexpr std::size_t drawing_table_offset = 0xF8; // of the pointer to it in the 64-bit process block

int count_drawing_objects()
{
    if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(told);
    using ProcessBlock = const std::byte*(NTAPI*)();
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
    const std::byte* const process = std::bit_cast<ProcessBlock>(found)();
    const auto* const table = *reinterpret_cast<const DrawingObject* const*>(process + drawing_table_offset);
    int count = 0;
    for (std::size_t i = 0; table != nullptr && i < drawing_table_size; ++i)
        count += table[i].type != 0 ? 1 : 0;
    return count;
}

} // namespace

GuiObjects count_gui_objects()
{
    GuiObjects objects;
    for (std::uintptr_t place = first_place; place <= last_place; ++place) {
        DWORD owner = 0;
        GetWindowThreadProcessId(reinterpret_cast<HWND>(place), &owner);
        objects.windows += owner == GetCurrentProcessId() ? 1 : 0;
        objects.menus += IsMenu(reinterpret_cast<HMENU>(place)) != FALSE ? 1 : 0;
    }
    objects.drawing = count_drawing_objects();
    return objects;
}

void PrintTo(const GuiObjects& objects, std::ostream* out)
{
    *out << objects.windows << " windows, " << objects.menus << " menus, " << objects.drawing << " drawing objects";
}
