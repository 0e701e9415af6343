#include "memory.h"

#include <fstream>
#include <stdexcept>
#include <string>

#include "no_rename.h"
#include "run/rename_run.h"

namespace multirename {

namespace {

constexpr std::u16string_view folder = u"C:\\Pictures\\";

// Makes its names up while it lists them.
class EndlessFolder final : public Disk {
public:
    explicit EndlessFolder(std::size_t count) : count_(count) { }

    FolderListing list_folder(std::u16string_view, const EntryVisitor& visit) override
    {
        constexpr std::size_t stride = 7919; // a prime: the names come in no order
        DirectoryEntry entry;
        for (std::size_t i = 0; i < count_; ++i) {
            entry.name = u"Summer in the mountains 2024 00000000.jpeg";
            std::size_t number = i * stride % count_;
            for (std::size_t at = 36; number > 0; number /= 10)
                entry.name[at--] = static_cast<char16_t>(u'0' + number % 10);
            entry.name.erase(5, 2);
            visit(entry);
        }
        return {};
    }

    void read_details(std::u16string_view, DirectoryEntry& entry) override { entry.has_details = true; }
    bool tells_folders_apart_by_case() override { return false; }
    std::optional<std::u16string> working_directory() override { return std::nullopt; }

private:
    std::size_t count_;
};

// Of this program alone: what `getrusage` tells goes over to the program that takes its place.
std::size_t peak_bytes()
{
    constexpr std::size_t unit = 1024;
    constexpr std::string_view label = "VmHWM:";
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(label))
            return std::stoul(line.substr(label.size())) * unit;
    }
    throw std::runtime_error("The system does not tell the peak of a process's memory.");
}

} // namespace

std::size_t peak_of_a_run(std::size_t count)
{
    const std::size_t before = peak_bytes();
    EndlessFolder disk(count);
    FileSet files(disk);
    for (Filename& entry : *files.open_folder(folder).entries)
        files.add_entry(entry);
    RememberedBoxes boxes;
    RenameRun run(files, boxes);
    for (std::size_t i = 0; i < run.pattern().parts.size(); ++i) {
        if (run.pattern().parts[i].kind != NamePartKind::Number)
            continue;
        run.part(i).renumber = true;
        run.part(i).startNumber = 1;
        run.refresh_names(); // every new name is another's old one
        run.part(i).renumber = false;
    }
    run.set_part_text(0, u"Summer in the mountains, by night ");
    NoRename progress;
    if (run.judge().kind == Verdict::Kind::Rename)
        run.rename(OwnerWindow::none, progress);
    if (progress.count != count)
        throw std::logic_error("Not all names were to be changed.");
    return peak_bytes() - before;
}

} // namespace multirename
