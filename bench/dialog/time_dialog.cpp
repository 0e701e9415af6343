// Times the dialog of the module on real files, as a host would call it:
//     time_dialog FOLDER COUNT
// The folder holds the samples of this measurement. Prints the milliseconds of opening, scrolling and a keystroke.

#include <windows.h>

#include <commctrl.h>

#include <bit>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "driver/dialog_driver.h"
#include "multirename.h"
#include "stopwatch.h"

namespace {

constexpr int list_id = 1503;

decltype(&run_multirename) module_function()
{
    const HMODULE module = LoadLibraryW(L"multirename.dll");
    const FARPROC function = module != nullptr ? GetProcAddress(module, "run_multirename") : nullptr;
    if (function == nullptr)
        throw std::runtime_error("multirename.dll cannot be loaded from beside this program");
    return std::bit_cast<decltype(&run_multirename)>(function);
}

// What was typed stands in the new name of the last row.
bool shows_typing(HWND dialog)
{
    wchar_t text[MAX_PATH] = {};
    const HWND list = GetDlgItem(dialog, list_id);
    LVITEMW item = {};
    item.iSubItem = 1;
    item.pszText = text;
    item.cchTextMax = MAX_PATH;
    const auto last = static_cast<WPARAM>(driver::ask(list, LVM_GETITEMCOUNT) - 1);
    driver::ask(list, LVM_GETITEMTEXTW, last, reinterpret_cast<LPARAM>(&item));
    const std::u16string typed = driver::text_of(driver::part_edits(dialog).front());
    return typed.starts_with(u"abc") &&
        std::wstring_view(item.pszText).starts_with(std::wstring(typed.begin(), typed.end()));
}

int time_dialog(const std::wstring& folder, int count)
{
    const auto run = module_function();
    std::vector<std::wstring> paths;
    for (int i = 0; i < count; ++i)
        paths.push_back(folder + L'\\' + sample_name(i));
    std::vector<const wchar_t*> pointers;
    for (const std::wstring& path : paths)
        pointers.push_back(path.c_str());
    return time_and_print([&](HWND owner, int shown) { run(owner, shown, pointers.data(), 0, L""); }, count, list_id,
                          &shows_typing);
}

} // namespace

int main()
{
    SetProcessDPIAware();
    try {
        const std::vector<std::wstring> words = arguments();
        if (words.size() != 2)
            throw std::runtime_error("a folder and a count are wanted");
        return time_dialog(words[0], std::stoi(words[1]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "time_dialog: %s\n", failure.what());
        return 2;
    }
}
