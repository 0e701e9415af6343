// The way of a command line: words -> paths, from the words themselves, from list files or from the file dialog ->
// full paths -> those that the module takes -> the module. Each step either gives what the next one needs or a problem,
// which ends the run in a message box.

#include "win32/launcher/launch.h"

#include <windows.h>

#include <bit>
#include <vector>

#include "multirename.h"
#include "platform/windows/wide.h"
#include "win32/framework/handles.h"
#include "win32/launcher/arguments.h"
#include "win32/launcher/chosen_files.h"
#include "win32/launcher/left_out.h"
#include "win32/launcher/list_file.h"
#include "win32/launcher/program_paths.h"
#include "win32/launcher/send_to.h"
#include "win32/launcher/standard_output.h"
#include "win32/launcher/system_text.h"

namespace multirename {

namespace {

using Paths = std::vector<std::u16string>;

constexpr UINT version_text_id = 1;

int show(std::u16string_view text, UINT kind)
{
    return MessageBoxW(nullptr, to_wide(text).c_str(), L"Multi Rename", kind | MB_SETFOREGROUND);
}

ExitStatus fail(const Problem& problem, ExitStatus status = Failed)
{
    show_error(problem.text);
    return status;
}

OrProblem<Paths> paths_in_list_file(std::u16string_view path)
{
    const OrProblem<std::string> bytes = list_file_bytes(path);
    if (const auto* const problem = std::get_if<Problem>(&bytes))
        return *problem;
    auto listed = listed_paths(std::get<std::string>(bytes));
    if (const auto* const bad = std::get_if<NotUtf8>(&listed))
        return Problem{u"Line " + from_wide(std::to_wstring(bad->line)) + u" of the list file is not UTF-8 text:\n\n" +
                       std::u16string(path) + u"\n\nSave the file with the encoding UTF-8 and try again."};
    if (std::get<Paths>(listed).empty())
        return Problem{u"There is no path in the list file:\n\n" + std::u16string(path) +
                       u"\n\nWrite one path a line into it and try again."};
    return std::get<Paths>(std::move(listed));
}

OrProblem<Paths> named_paths(std::span<const PathWord> words)
{
    Paths paths;
    for (const PathWord& word : words) {
        if (!word.is_list_file) {
            paths.push_back(word.path);
            continue;
        }
        const OrProblem<Paths> listed = paths_in_list_file(full_path(word.path));
        if (const auto* const problem = std::get_if<Problem>(&listed))
            return *problem;
        paths.insert(paths.end(), std::get<Paths>(listed).begin(), std::get<Paths>(listed).end());
    }
    return paths;
}

ExitStatus open_module(const Paths& paths)
{
    constexpr std::u16string_view name = u"multirename.dll";
    const std::u16string path = program_folder().append(name);
    const UniqueLibrary module(LoadLibraryW(to_wide(path).c_str()));
    const DWORD error = GetLastError();
    if (!module)
        return fail({u"The part of Multi Rename that renames cannot be loaded:\n\n" + path + u"\n" +
                     system_text(error, name) +
                     u"\n\nPut multirename.dll and multirename-gui.exe of the same version into one folder."});
    const auto run = std::bit_cast<decltype(&run_multirename)>(GetProcAddress(module.get(), "run_multirename"));
    if (run == nullptr)
        return fail({u"This is not the multirename.dll of Multi Rename:\n\n" + path +
                     u"\n\nPut multirename.dll and multirename-gui.exe of the same version into one folder."});

    std::vector<std::wstring> wide_paths;
    for (const std::u16string& each : paths)
        wide_paths.push_back(to_wide(each));
    std::vector<const wchar_t*> pointers;
    pointers.reserve(wide_paths.size());
    for (const std::wstring& each : wide_paths)
        pointers.push_back(each.c_str());
    // The folder that a program works in cannot be renamed, and this one may be among the paths or hold them.
    SetCurrentDirectoryW(to_wide(program_folder()).c_str());
    run(nullptr, static_cast<INT32>(pointers.size()), pointers.data(), 0, nullptr);
    return Done;
}

ExitStatus rename(std::span<const PathWord> words)
{
    OrProblem<Paths> named = words.empty() ? choose_files() : named_paths(words);
    if (const auto* const problem = std::get_if<Problem>(&named))
        return fail(*problem);
    const Paths& given = std::get<Paths>(named);
    if (given.empty())
        return Done;

    Paths taken;
    std::vector<LeftOutPath> left_out;
    for (const std::u16string& path : given) {
        std::u16string full = full_path(path);
        if (const auto why = why_left_out(full))
            left_out.push_back({std::move(full), *why});
        else
            taken.push_back(std::move(full));
    }
    if (taken.empty())
        return fail({left_out_message(left_out, given.size())});
    if (!left_out.empty() && show(left_out_message(left_out, given.size()), MB_OKCANCEL | MB_ICONWARNING) != IDOK)
        return Done;
    return open_module(taken);
}

ExitStatus tell(std::u16string_view text)
{
    if (!print(text))
        show(text, MB_OK | MB_ICONINFORMATION);
    return Done;
}

ExitStatus report(const OrProblem<Report>& outcome)
{
    if (const auto* const problem = std::get_if<Problem>(&outcome))
        return fail(*problem);
    print(std::get<Report>(outcome).text + u"\n");
    return Done;
}

std::u16string version_text()
{
    const wchar_t* text = nullptr;
    const int length = LoadStringW(nullptr, version_text_id, reinterpret_cast<wchar_t*>(&text), 0);
    return u"Multi Rename " + from_wide({text, static_cast<std::size_t>(length)}) + u"\n";
}

} // namespace

void show_error(std::u16string_view text) noexcept
{
    try {
        show(text, MB_OK | MB_ICONERROR);
    } catch (...) {
        MessageBoxW(nullptr, L"Memory has run out.", L"Multi Rename", MB_OK | MB_ICONERROR);
    }
}

ExitStatus launch(std::span<const std::u16string> words)
{
    const OrProblem<CommandLine> parsed = parse_arguments(words);
    if (const auto* const problem = std::get_if<Problem>(&parsed))
        return fail(*problem, NotUnderstood);
    const auto& line = std::get<CommandLine>(parsed);
    switch (line.task) {
    case Task::InstallSendTo: return report(install_send_to());
    case Task::UninstallSendTo: return report(uninstall_send_to());
    case Task::ShowHelp: return tell(help_text());
    case Task::ShowVersion: return tell(version_text());
    case Task::Rename: break;
    }
    return rename(line.paths);
}

} // namespace multirename
