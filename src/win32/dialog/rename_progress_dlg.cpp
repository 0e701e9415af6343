#include "win32/dialog/rename_progress_dlg.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/windows/wide.h"

namespace multirename {

void RenameProgressDlg::rename(OwnerWindow owner, std::span<const Filename* const> entries)
{
    const MoveLists lists = move_lists(entries);
    if (lists.sources.empty() || lists.targets.empty())
        return;
    const std::wstring sources = to_wide(lists.sources);
    const std::wstring targets = to_wide(lists.targets);
    SHFILEOPSTRUCTW request = {};
    request.hwnd = reinterpret_cast<HWND>(owner);
    request.wFunc = FO_MOVE;
    request.pFrom = sources.c_str();
    request.pTo = targets.c_str();
    request.fFlags = FOF_MULTIDESTFILES | FOF_ALLOWUNDO;
    SHFileOperationW(&request);
}

} // namespace multirename
