#include "win32/launcher/chosen_files.h"

#include <windows.h>

#include <shobjidl.h>

#include "platform/windows/wide.h"
#include "win32/launcher/com.h"
#include "win32/launcher/system_text.h"

namespace multirename {

namespace {

std::u16string path_of(IShellItemArray& items, DWORD index)
{
    IShellItem* item = nullptr;
    require(items.GetItemAt(index, &item));
    const UniqueInterface<IShellItem> owned_item(item);
    wchar_t* path = nullptr;
    require(item->GetDisplayName(SIGDN_FILESYSPATH, &path));
    const UniqueTaskText owned_path(path);
    return from_wide(path);
}

std::vector<std::u16string> paths_of(IFileOpenDialog& dialog)
{
    IShellItemArray* items = nullptr;
    require(dialog.GetResults(&items));
    const UniqueInterface<IShellItemArray> owned_items(items);
    DWORD count = 0;
    require(items->GetCount(&count));
    std::vector<std::u16string> paths;
    for (DWORD i = 0; i < count; ++i)
        paths.push_back(path_of(*items, i));
    return paths;
}

std::vector<std::u16string> shown_and_chosen()
{
    const ComApartment apartment;
    const auto dialog = create_object<IFileOpenDialog>(CLSID_FileOpenDialog);
    FILEOPENDIALOGOPTIONS options = 0;
    require(dialog.get()->GetOptions(&options));
    require(dialog.get()->SetOptions(options | FOS_ALLOWMULTISELECT | FOS_FORCEFILESYSTEM | FOS_NODEREFERENCELINKS));
    require(dialog.get()->SetTitle(L"Choose the files to rename"));
    const HRESULT shown = dialog.get()->Show(nullptr);
    if (shown == HRESULT_FROM_WIN32(ERROR_CANCELLED))
        return {};
    require(shown);
    return paths_of(*dialog.get());
}

} // namespace

OrProblem<std::vector<std::u16string>> choose_files()
{
    try {
        return shown_and_chosen();
    } catch (const std::system_error& failure) {
        return Problem{u"The files cannot be chosen: " + system_text(static_cast<DWORD>(failure.code().value())) +
                       u"\n\nDrop them on the icon of Multi Rename instead, or name them on its command line."};
    }
}

} // namespace multirename
