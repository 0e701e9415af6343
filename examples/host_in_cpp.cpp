// A small host in C++ that loads the module from beside itself when it is first needed. It lists the folder that its
// command line names, by default the one that it is started in; its button opens the dialog on the selected entries, or
// on all of them when none is selected. The window is a dialog of host_in_cpp.rc.

#include <windows.h>

#include <shellapi.h>

#include <bit>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "multirename.h"

namespace {

namespace fs = std::filesystem;

constexpr int list_id = 100;
constexpr WORD rename_id = 101;

struct FreeLibraryCall {
    using pointer = HMODULE;
    void operator()(HMODULE library) const noexcept { FreeLibrary(library); }
};

struct Host {
    fs::path folder;
    std::unique_ptr<HMODULE, FreeLibraryCall> module; // stays, once loaded: it remembers its check boxes till unloaded
};

fs::path program_folder()
{
    std::wstring path(32768, L'\0'); // no path is longer
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return fs::path(path).parent_path();
}

void show_error(HWND window, const std::wstring& text)
{
    MessageBoxW(window, text.c_str(), L"Host in C++: error", MB_OK | MB_ICONERROR);
}

// The module is loaded by its whole path, and what it needs from the system's folder: no file of the same name that
// lies somewhere else is loaded in its place. Null when it cannot be had.
decltype(&run_multirename) loaded_function(Host& host, const fs::path& module_path)
{
    if (host.module == nullptr)
        host.module.reset(LoadLibraryExW(module_path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    if (host.module == nullptr)
        return nullptr;
    return std::bit_cast<decltype(&run_multirename)>(GetProcAddress(host.module.get(), "run_multirename"));
}

void read_folder(HWND window, const Host& host)
{
    SendDlgItemMessageW(window, list_id, LB_RESETCONTENT, 0, 0);
    std::error_code error;
    for (fs::directory_iterator entry(host.folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const std::wstring name = entry->path().filename().wstring();
        SendDlgItemMessageW(window, list_id, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    if (error)
        show_error(window, L"This folder cannot be read:\n\n" + host.folder.wstring());
}

std::vector<std::wstring> chosen_paths(HWND window, const Host& host)
{
    const HWND list = GetDlgItem(window, list_id);
    const bool takes_all = SendMessageW(list, LB_GETSELCOUNT, 0, 0) == 0;
    const auto count = static_cast<WPARAM>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    std::vector<std::wstring> paths;
    for (WPARAM item = 0; item < count; ++item) {
        if (!takes_all && SendMessageW(list, LB_GETSEL, item, 0) == 0)
            continue;
        std::wstring name(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, item, 0)), L'\0');
        SendMessageW(list, LB_GETTEXT, item, reinterpret_cast<LPARAM>(name.data()));
        paths.push_back((host.folder / name).wstring());
    }
    return paths;
}

void rename_chosen(HWND window, Host& host)
{
    const fs::path module_path = program_folder() / L"multirename.dll";
    const auto run = loaded_function(host, module_path);
    if (run == nullptr) {
        show_error(window,
                   L"Multi Rename cannot be loaded:\n\n" + module_path.wstring() +
                       L"\n\nPut multirename.dll into the folder of this program, then try again.");
        return;
    }
    const std::vector<std::wstring> paths = chosen_paths(window, host);
    std::vector<const wchar_t*> pointers;
    pointers.reserve(paths.size());
    for (const std::wstring& path : paths)
        pointers.push_back(path.c_str());
    run(window, static_cast<INT32>(pointers.size()), pointers.data(), 0, nullptr);
    read_folder(window, host); // the call has no result: what has become of the names, the folder tells
}

// No exception may leave it: what could catch one is behind the system's own functions.
INT_PTR CALLBACK dialog_procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept
try {
    if (message == WM_INITDIALOG)
        SetWindowLongPtrW(window, DWLP_USER, l);
    auto* const host = reinterpret_cast<Host*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message == WM_INITDIALOG)
        read_folder(window, *host);
    else if (message == WM_COMMAND && LOWORD(w) == rename_id)
        rename_chosen(window, *host);
    else if (message == WM_COMMAND && LOWORD(w) == IDCANCEL)
        EndDialog(window, 0);
    return message == WM_INITDIALOG || message == WM_COMMAND ? TRUE : FALSE;
} catch (const std::exception&) {
    MessageBoxW(window, L"Memory has run out.", L"Host in C++: error", MB_OK | MB_ICONERROR);
    return TRUE;
}

fs::path folder_on_command_line()
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    fs::path folder = fs::absolute(words != nullptr && count > 1 ? words[1] : L".");
    LocalFree(words);
    return folder;
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int)
{
    Host host = {folder_on_command_line(), nullptr};
    SetCurrentDirectoryW(program_folder().c_str()); // a program's working folder cannot be renamed
    DialogBoxParamW(instance, MAKEINTRESOURCEW(1), nullptr, &dialog_procedure, reinterpret_cast<LPARAM>(&host));
    return 0;
}
