#include "cli/selection.h"

#include "cli/failure.h"
#include "cli/printable.h"
#include "platform/entry_path.h"
#include "platform/error_text.h"
#include "platform/native_text.h"
#include "platform/user_folders.h"

namespace multirename {

namespace {

constexpr std::u16string_view folder_of_names = u"\\";
constexpr std::string_view standard_input = "-";

std::string file_content(const std::string& path, std::string_view option, Console& console)
{
    if (path == standard_input)
        return console.read_input();
    std::string content;
    if (const std::error_code error = read_file(path_of_native_bytes(path), content))
        throw WrongCommandLine("--" + std::string(option) + " " + printable(path) + ": " + error_text(error) + ".");
    return content;
}

std::vector<std::string> items_in(const std::string& path, OptionId option, bool nul_ended, Console& console)
{
    return items_of(file_content(path, option_info(option).name, console), nul_ended);
}

[[noreturn]] void refuse_path(const std::string& path, const std::error_code& error)
{
    if (error == std::errc::invalid_argument)
        throw WrongCommandLine("\"" + printable(path) +
                               "\" has no name of its own that could change: name the file or the folder.");
    throw WrongCommandLine("\"" + printable(path) + "\" cannot be renamed: " + error_text(error) +
                           ". Nothing was renamed.");
}

[[noreturn]] void refuse_folder(const std::u16string& folder, const std::error_code& error)
{
    throw Failure(ExitStatus::Refused,
                  "The folder \"" + printable(native_from_path(folder)) + "\" cannot be read (" + error_text(error) +
                      "), so that clashes of names could not be seen. Nothing was renamed.");
}

} // namespace

std::vector<std::string> items_of(std::string_view bytes, bool nul_ended)
{
    std::vector<std::string> items;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find(nul_ended ? '\0' : '\n');
        const std::string_view item = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        const std::string_view taken = nul_ended ? item : line_of_text_file(item, items.empty());
        if (!taken.empty())
            items.emplace_back(taken);
    }
    return items;
}

FolderListing SelectedFiles::NamesDisk::list_folder(std::u16string_view, const EntryVisitor& visit)
{
    DirectoryEntry entry;
    for (const std::u16string& name : names) {
        entry.name = name;
        visit(entry);
    }
    return {};
}

SelectedFiles::SelectedFiles(const Selection& selection, Console& console) :
    names_only_(selection.names.has_value()),
    border_(names_only_ ? NameBorder::Kind::List : NameBorder::Kind::System),
    files_(names_only_ ? static_cast<Disk&>(names_disk_) : system_disk())
{
    if (names_only_)
        take_names(selection, console);
    else
        take_paths(selection, console);
}

void SelectedFiles::take_names(const Selection& selection, Console& console)
{
    for (const std::string& name : items_in(*selection.names, OptionId::Names, selection.nul_ended, console))
        names_disk_.names.push_back(border_.name(name));
    if (!selection.listed) {
        for (const std::u16string& name : names_disk_.names)
            files_.add_entry(folder_of_names, name);
        return;
    }
    for (const std::string& name : items_in(*selection.listed, OptionId::Listed, selection.nul_ended, console)) {
        if (files_.add_entry(folder_of_names, border_.name(name)) == nullptr)
            throw WrongCommandLine("--listed: \"" + printable(name) + "\" is not among the names of " +
                                   printable(*selection.names) + ".");
    }
}

void SelectedFiles::take_paths(const Selection& selection, Console& console)
{
    std::vector<std::string> paths = selection.paths;
    if (selection.from) {
        for (std::string& path : items_in(*selection.from, OptionId::From, selection.nul_ended, console))
            paths.push_back(std::move(path));
    }
    EntryPaths places;
    for (const std::string& path : paths) {
        if (path.find('\0') != std::string::npos) // the system would take what stands before it for the path
            throw WrongCommandLine("\"" + printable(path) +
                                   "\" holds a NUL character, which no path can: with -0 NUL ends each path of a list. "
                                   "Nothing was renamed.");
        EntryPath place;
        if (const std::error_code error = places.entry(path, place))
            refuse_path(path, error);
        if (files_.add_entry(place.folder, place.name) != nullptr)
            continue;
        if (const std::error_code error = files_.open_folder(place.folder).listing_error)
            refuse_folder(place.folder, error);
        refuse_path(path, std::make_error_code(std::errc::no_such_file_or_directory));
    }
    if (selection.in) {
        std::u16string folder;
        if (const std::error_code error = places.folder(*selection.in, folder))
            throw WrongCommandLine("--in " + printable(*selection.in) + ": " + error_text(error) + ".");
        take_folder(selection, folder);
    }
}

void SelectedFiles::take_folder(const Selection& selection, const std::u16string& path)
{
    const RenameFolder& folder = files_.open_folder(path);
    if (folder.listing_error)
        refuse_folder(path, folder.listing_error);
    for (Filename& entry : *folder.entries) {
        if ((selection.folders || !entry.is_folder) && (selection.hidden || !entry.is_hidden))
            files_.add_entry(entry);
    }
}

} // namespace multirename
