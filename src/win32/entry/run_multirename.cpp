#include <string>
#include <vector>

#include "fileset/file_set.h"
#include "multirename.h"
#include "platform/windows/wide.h"
#include "win32/dialog/change_text_dlg.h"
#include "win32/framework/cwinapp.h"
#include "win32/framework/module.h"

namespace multirename {

namespace {

constexpr std::u16string_view product_name = u"Tallyhand";

/// The module while it is loaded. Needs nothing beyond what every module gets.
class CVelloriaQuernstoneApp final : public CWinApp { };

CVelloriaQuernstoneApp the_app;

std::vector<std::u16string> copied_paths(INT32 count, const wchar_t* const* paths)
{
    std::vector<std::u16string> copies;
    for (INT32 i = 0; paths != nullptr && i < count; ++i) {
        if (paths[i] != nullptr)
            copies.push_back(from_wide(paths[i]));
    }
    return copies;
}

void run(HWND parent, const std::vector<std::u16string>& paths, bool flag, const wchar_t* text)
{
    FileSet files(system_disk());
    files.add_paths(paths);
    const CWnd parent_window(parent);
    ChangeTextDlg dialog(product_name, parent_window, files, flag, from_wide(text != nullptr ? text : L""));
    dialog.DoModal();
}

} // namespace

} // namespace multirename

void WINAPI run_multirename(HWND parent, INT32 count, const wchar_t* const* paths, unsigned char flag,
                            const wchar_t* text)
{
    try {
        const multirename::ModuleStateGuard guard;
        multirename::run(parent, multirename::copied_paths(count, paths), flag != 0, text);
    } catch (...) { // NOLINT(bugprone-empty-catch): the host may not be C++, and is promised just this
    }
}
