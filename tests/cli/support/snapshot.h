#pragma once

#include <sys/types.h>

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace multirename {

/// What lies under one path: enough to tell a moved entry from one that was copied, replaced or written to.
struct SnapshotEntry {
    enum class Type { File, Folder, Link, Other };

    Type type = Type::Other;
    std::string content = {}; ///< of a file
    std::string target = {}; ///< of a link
    mode_t mode = 0; ///< permission bits, with set-id and sticky ones; the type is not among them
    ino_t inode = 0;

    bool operator==(const SnapshotEntry&) const = default;
};

/// A folder at one moment: every entry below it by its path from there on, in raw bytes. The folder itself is left out.
struct Snapshot {
    std::map<std::string, SnapshotEntry> entries = {};

    bool operator==(const Snapshot&) const = default;
};

/// Links are taken as links, whatever they point at. Throws std::system_error when something cannot be read.
[[nodiscard]] Snapshot snapshot_of(const std::string& folder);

/// The names directly in `folder`, sorted by their bytes, without "." and "..". Throws std::system_error.
[[nodiscard]] std::vector<std::string> names_in(const std::string& folder);

/// One line for each path that is gone ("- "), new ("+ ") or different ("~ ", with what it was and is), in the order of
/// paths; empty when the two are equal. Bytes that are not printable ASCII are shown as escapes, long contents cut.
[[nodiscard]] std::string difference(const Snapshot& before, const Snapshot& after);

/// For the messages of failed tests: one line for each path, as in `difference`.
void PrintTo(const Snapshot& snapshot, std::ostream* out);

} // namespace multirename
