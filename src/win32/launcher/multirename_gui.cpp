// The program multirename-gui.exe: hosts the module that lies beside it, for people whose file manager does not call
// it. See arguments.h for what can stand on its command line.

#include <windows.h>

#include <shellapi.h>

#include <exception>
#include <new>
#include <string>
#include <vector>

#include "platform/system_libraries.h"
#include "platform/unique_handle.h"
#include "platform/windows/wide.h"
#include "text/utf8.h"
#include "win32/launcher/launch.h"

namespace multirename {

namespace {

struct WordsTraits {
    static wchar_t** none() noexcept { return nullptr; }
    static void close(wchar_t** words) noexcept { LocalFree(words); }
};

std::vector<std::u16string> words_behind_program()
{
    int count = 0;
    const UniqueHandle<WordsTraits> words(CommandLineToArgvW(GetCommandLineW(), &count));
    if (!words)
        throw std::bad_alloc();
    std::vector<std::u16string> copies;
    for (int i = 1; i < count; ++i)
        copies.push_back(from_wide(words.get()[i]));
    return copies;
}

ExitStatus run() noexcept
{
    try {
        return launch(words_behind_program());
    } catch (const std::bad_alloc&) {
        show_error(u"Memory has run out. Close other programs and try again with fewer files.");
    } catch (const std::exception& failure) {
        show_error(u"Something went wrong that should not: " + from_bytes(failure.what()));
    }
    return Failed;
}

} // namespace

} // namespace multirename

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    multirename::find_only_system_libraries();
    // An empty drive or a damaged library is told in this program's own words, not in a box of the system's.
    SetErrorMode(SEM_FAILCRITICALERRORS);
    return multirename::run();
}
