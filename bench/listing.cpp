#include "listing.h"

namespace multirename {

namespace {

constexpr std::u16string_view folder = u"C:\\"; // short, so that names of 255 characters can be selected by their paths

FileSet& filled(FileSet& files, const Listing& listing)
{
    files.add_paths(listing.paths());
    return files;
}

} // namespace

Listing::Listing(const NameFamily& family, std::size_t count)
{
    static std::size_t made = 0;
    serial_ = ++made;
    // Copies lie in memory in the order of the list, as those of a listing do, whatever order they were made in.
    const std::vector<std::u16string> names = family.make(count);
    names_ = names;
    paths_.reserve(names_.size());
    for (const std::u16string& name : names_) {
        paths_.push_back(std::u16string(folder) + name);
        units_ += name.size();
    }
}

FolderListing Listing::list_folder(std::u16string_view folder_path, const EntryVisitor& visit)
{
    DirectoryEntry entry;
    for (const std::u16string& name : names_) {
        entry.name = name;
        if (folder_path == folder)
            visit(entry);
    }
    return {};
}

void Listing::read_details(std::u16string_view, DirectoryEntry& entry) { entry.has_details = true; }

ListingRun::ListingRun(Listing& listing) : files(listing), run(filled(files, listing), boxes) { }

} // namespace multirename
