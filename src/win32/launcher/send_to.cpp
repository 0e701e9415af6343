#include "win32/launcher/send_to.h"

#include <windows.h>

#include <knownfolders.h>
#include <shlobj.h>

#include "platform/windows/wide.h"
#include "win32/launcher/com.h"
#include "win32/launcher/program_paths.h"
#include "win32/launcher/system_text.h"

namespace multirename {

namespace {

std::wstring link_path(DWORD folder_flags)
{
    wchar_t* folder = nullptr;
    const HRESULT found = SHGetKnownFolderPath(FOLDERID_SendTo, folder_flags, nullptr, &folder);
    const UniqueTaskText owned_folder(folder);
    require(found);
    return std::wstring(folder) + L"\\Multi Rename.lnk";
}

void save_link(const std::wstring& path)
{
    const std::wstring program = to_wide(program_path());
    const auto link = create_object<IShellLinkW>(CLSID_ShellLink);
    require(link.get()->SetPath(program.c_str()));
    require(link.get()->SetDescription(L"Renames the selected files and folders"));
    require(link.get()->SetIconLocation(program.c_str(), 0));
    IPersistFile* file = nullptr;
    require(link.get()->QueryInterface(IID_PPV_ARGS(&file)));
    const UniqueInterface<IPersistFile> owned_file(file);
    require(file->Save(path.c_str(), TRUE));
}

void remove_link(const std::wstring& path)
{
    if (DeleteFileW(path.c_str()) != FALSE)
        return;
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND)
        require(HRESULT_FROM_WIN32(error));
}

Problem menu_problem(std::u16string_view what_failed, const std::system_error& failure)
{
    return {std::u16string(what_failed)
                .append(system_text(static_cast<DWORD>(failure.code().value())))
                .append(u"\n\nCheck that you may write into the folder that opens under the name \"shell:sendto\".")};
}

} // namespace

OrProblem<Report> install_send_to()
{
    try {
        const ComApartment apartment;
        save_link(link_path(KF_FLAG_CREATE));
        return Report{u"Multi Rename is in the \"Send to\" menu."};
    } catch (const std::system_error& failure) {
        return menu_problem(u"Multi Rename cannot be put into the \"Send to\" menu: ", failure);
    }
}

OrProblem<Report> uninstall_send_to()
{
    try {
        remove_link(link_path(KF_FLAG_DONT_VERIFY));
        return Report{u"Multi Rename is not in the \"Send to\" menu."};
    } catch (const std::system_error& failure) {
        return menu_problem(u"Multi Rename cannot be taken out of the \"Send to\" menu: ", failure);
    }
}

} // namespace multirename
