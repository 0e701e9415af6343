/* A small host in C, linked with the module's import library. Its command line names files and folders; its button
 * opens the dialog on those of them that are there. */
#include <windows.h>

#include <shellapi.h>
#include <stdlib.h>
#include <wchar.h>

#include "multirename.h"

enum { label_id = 100, rename_id = 101 };

static const wchar_t** paths;
static int path_count;

/* The call has no result. Names that were changed are not there any more; which ones took their place, a host that
 * shows folders sees when it reads them again. */
static void show_paths_still_there(HWND window)
{
    wchar_t text[64];
    int kept = 0;
    for (int i = 0; i < path_count; ++i) {
        if (GetFileAttributesW(paths[i]) != INVALID_FILE_ATTRIBUTES)
            paths[kept++] = paths[i];
    }
    path_count = kept;
    wsprintfW(text, L"Files and folders still to rename: %d", path_count);
    SetDlgItemTextW(window, label_id, text);
    EnableWindow(GetDlgItem(window, rename_id), path_count > 0);
}

static void add_control(HWND window, const wchar_t* kind, const wchar_t* text, DWORD style, int top, int width, int id)
{
    const HWND control = CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, 16, top, width, 28, window,
                                         (HMENU)(INT_PTR)id, NULL, NULL);
    SendMessageW(control, WM_SETFONT, (WPARAM)GetStockObject(DEFAULT_GUI_FONT), TRUE);
}

static LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case WM_CREATE:
        add_control(window, L"STATIC", L"", SS_CENTERIMAGE, 12, 300, label_id);
        add_control(window, L"BUTTON", L"&Rename...", WS_TABSTOP | BS_DEFPUSHBUTTON, 52, 110, rename_id);
        show_paths_still_there(window);
        return 0;
    case WM_COMMAND:
        if (LOWORD(w) == rename_id) {
            run_multirename(window, path_count, paths, 0, NULL);
            show_paths_still_there(window);
        }
        return 0;
    case WM_SETFOCUS: SetFocus(GetDlgItem(window, rename_id)); return 0;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(window, message, w, l);
    }
}

/* The module wants full paths, and those of folders without a backslash at the end. Null when there is none. */
static wchar_t* full_path(const wchar_t* path)
{
    const DWORD size = GetFullPathNameW(path, 0, NULL, NULL);
    wchar_t* const full = size == 0 ? NULL : calloc(size, sizeof *full);
    const DWORD length = full == NULL ? 0 : GetFullPathNameW(path, size, full, NULL);
    if (length > 0 && length < size && full[length - 1] == L'\\')
        full[length - 1] = L'\0';
    return full;
}

static int fail(const wchar_t* text)
{
    MessageBoxW(NULL, text, L"Host in C: error", MB_OK | MB_ICONERROR);
    return 1;
}

int main(void)
{
    WNDCLASSW kind = {.lpfnWndProc = window_procedure, .lpszClassName = L"HostInC"};
    int word_count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &word_count);
    MSG message;
    if (words == NULL || word_count < 2)
        return fail(L"Name the files and folders to rename on the command line.");
    paths = calloc((size_t)word_count, sizeof *paths);
    for (int i = 1; paths != NULL && i < word_count; ++i) {
        const wchar_t* const path = full_path(words[i]);
        if (path != NULL)
            paths[path_count++] = path;
    }
    SetCurrentDirectoryW(L"\\"); /* a program's working folder cannot be renamed */

    kind.hCursor = LoadCursorW(NULL, IDC_ARROW);
    kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&kind);
    const HWND window = CreateWindowExW(0, L"HostInC", L"Host in C", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                                        348, 136, NULL, NULL, NULL, NULL);
    if (window == NULL)
        return fail(L"The window cannot be made.");
    ShowWindow(window, SW_SHOWDEFAULT);
    while (GetMessageW(&message, NULL, 0, 0) > 0) {
        if (!IsDialogMessageW(window, &message)) { /* for Tab, Enter and access keys */
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return 0;
}
