#include "support/snapshot.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <climits>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string_view>

#include "support/descriptor.h"
#include "support/folder_walk.h"

namespace multirename {

namespace {

using Type = SnapshotEntry::Type;
using Entries = std::map<std::string, SnapshotEntry>;

Type type_of(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG: return Type::File;
    case S_IFDIR: return Type::Folder;
    case S_IFLNK: return Type::Link;
    default: return Type::Other;
    }
}

std::string content_of(int folder, const std::string& name)
{
    const Descriptor file(checked(openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC), name.c_str()));
    std::string content;
    std::array<char, 65536> block = {};
    while (const ssize_t length = checked(read(file.get(), block.data(), block.size()), "read"))
        content.append(block.data(), static_cast<std::size_t>(length));
    return content;
}

std::string target_of(int folder, const std::string& name)
{
    std::array<char, PATH_MAX> target = {};
    const ssize_t length = checked(readlinkat(folder, name.c_str(), target.data(), target.size()), name.c_str());
    return {target.data(), static_cast<std::size_t>(length)};
}

SnapshotEntry entry_of(int folder, const std::string& name)
{
    struct stat details { };
    checked(fstatat(folder, name.c_str(), &details, AT_SYMLINK_NOFOLLOW), name.c_str());
    SnapshotEntry entry;
    entry.type = type_of(details.st_mode);
    entry.mode = details.st_mode & ~static_cast<mode_t>(S_IFMT);
    entry.inode = details.st_ino;
    if (entry.type == Type::File)
        entry.content = content_of(folder, name);
    if (entry.type == Type::Link)
        entry.target = target_of(folder, name);
    return entry;
}

void collect(int folder, const std::string& prefix, Entries& entries)
{
    for (const std::string& name : names_in_open(folder)) {
        const SnapshotEntry& entry = entries[prefix + name] = entry_of(folder, name);
        if (entry.type == Type::Folder)
            collect(open_folder(folder, name).get(), prefix + name + '/', entries);
    }
}

std::string in_quotes(std::string_view bytes)
{
    std::ostringstream out;
    out << '"' << std::hex << std::setfill('0');
    for (const char byte : bytes) {
        if (byte == '\n')
            out << "\\n";
        else if (byte < ' ' || byte > '~')
            out << "\\x" << std::setw(2) << static_cast<unsigned>(static_cast<unsigned char>(byte));
        else
            out << (byte == '"' || byte == '\\' ? "\\" : "") << byte;
    }
    out << '"';
    return out.str();
}

// Only contents are cut: long names may differ at their ends alone.
std::string shortened(const std::string& content)
{
    constexpr std::size_t longest = 60;
    if (content.size() <= longest)
        return in_quotes(content);
    return in_quotes(content.substr(0, longest)) + " and more, " + std::to_string(content.size()) + " bytes";
}

std::string described(const SnapshotEntry& entry)
{
    std::ostringstream out;
    switch (entry.type) {
    case Type::File: out << "file " << shortened(entry.content); break;
    case Type::Folder: out << "folder"; break;
    case Type::Link: out << "link to " << in_quotes(entry.target); break;
    case Type::Other: out << "other"; break;
    }
    out << ", mode " << std::oct << std::setfill('0') << std::setw(4) << entry.mode << std::dec << ", inode "
        << entry.inode;
    return out.str();
}

// Where long contents begin alike, what is shown of them would be alike too.
std::string content_note(const std::string& before, const std::string& after)
{
    if (before == after || shortened(before) != shortened(after))
        return {};
    std::size_t same = 0;
    while (same < before.size() && same < after.size() && before[same] == after[same])
        ++same;
    return ", different from byte " + std::to_string(same) + " on";
}

} // namespace

Snapshot snapshot_of(const std::string& folder)
{
    Snapshot snapshot;
    collect(open_folder(AT_FDCWD, folder).get(), {}, snapshot.entries);
    return snapshot;
}

std::vector<std::string> names_in(const std::string& folder)
{
    return names_in_open(open_folder(AT_FDCWD, folder).get());
}

std::string difference(const Snapshot& before, const Snapshot& after)
{
    std::map<std::string, std::string> lines;
    for (const auto& [path, entry] : before.entries) {
        const auto found = after.entries.find(path);
        if (found == after.entries.end())
            lines[path] = "- " + in_quotes(path) + ": " + described(entry);
        else if (found->second != entry)
            lines[path] = "~ " + in_quotes(path) + ": " + described(entry) + " -> " + described(found->second) +
                content_note(entry.content, found->second.content);
    }
    for (const auto& [path, entry] : after.entries) {
        if (!before.entries.contains(path))
            lines[path] = "+ " + in_quotes(path) + ": " + described(entry);
    }
    std::string text;
    for (const auto& [path, line] : lines)
        text += line + '\n';
    return text;
}

void PrintTo(const Snapshot& snapshot, std::ostream* out)
{
    *out << snapshot.entries.size() << " entries\n";
    for (const auto& [path, entry] : snapshot.entries)
        *out << "  " << in_quotes(path) << ": " << described(entry) << '\n';
}

} // namespace multirename
