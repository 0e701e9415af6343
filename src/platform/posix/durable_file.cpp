#include "platform/durable_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/move_entry.h"
#include "platform/posix/last_error.h"

namespace multirename {

namespace {

std::error_code write_all(int file, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return last_error();
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code read_all(int file, std::string& content)
{
    std::array<char, 65536> piece{};
    struct stat details { };
    if (fstat(file, &details) == 0)
        content.reserve(static_cast<std::size_t>(details.st_size));
    while (true) {
        const ssize_t length = read(file, piece.data(), piece.size());
        if (length < 0 && errno == EINTR)
            continue;
        if (length < 0)
            return last_error();
        if (length == 0)
            return {};
        content.append(piece.data(), static_cast<std::size_t>(length));
    }
}

std::error_code sync_folder(const std::filesystem::path& folder)
{
    const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return last_error();
    const std::error_code error = fsync(opened) == 0 ? std::error_code() : last_error();
    ::close(opened);
    return error;
}

int descriptor(std::intptr_t handle) { return static_cast<int>(handle); }

std::error_code lock(int file)
{
    if (flock(file, LOCK_EX | LOCK_NB) == 0)
        return {};
    return errno == EWOULDBLOCK ? std::make_error_code(std::errc::device_or_resource_busy) : last_error();
}

std::error_code check_is_own_file(int file)
{
    struct stat details { };
    if (fstat(file, &details) != 0)
        return last_error();
    if (!S_ISREG(details.st_mode))
        return std::make_error_code(std::errc::not_supported);
    return details.st_uid == geteuid() ? std::error_code() : std::make_error_code(std::errc::operation_not_permitted);
}

// Without waiting for somebody at the other end, should it be a pipe.
int open_existing(const std::filesystem::path& path, int access)
{
    return ::open(path.c_str(), access | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
}

} // namespace

DurableFile::~DurableFile()
{
    // First, for what is in memory keeps the file open and locked as well.
    if (!in_memory_.empty())
        munmap(in_memory_.data(), in_memory_.size());
    if (is_open())
        ::close(descriptor(handle_));
}

std::error_code DurableFile::create(const std::filesystem::path& path, const Content& content, DurableFile& file)
{
    constexpr mode_t owner_only = 0600;
    const std::string folder = path.has_parent_path() ? path.parent_path().string() : ".";
    const std::string name = path.filename().string();
    const std::string draft = name + ".new";
    EntryMover mover(EntryMover::FolderLinks::Follow); // people put their folders where they like
    std::error_code error;
    if (mover.exists(folder, name, error))
        return std::make_error_code(std::errc::file_exists);
    const std::string draft_path = path.string() + ".new";
    const int opened = ::open(draft_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, owner_only);
    if (opened < 0)
        return last_error();
    DurableFile created(opened);
    error = check_is_own_file(opened);
    if (!error)
        error = lock(opened);
    if (!error)
        error = content([opened](std::string_view piece) { return write_all(opened, piece); });
    if (!error && fsync(opened) != 0)
        error = last_error();
    if (!error)
        error = mover.move(folder, draft, name);
    if (error) {
        unlink(draft_path.c_str());
        return error;
    }
    error = sync_folder(folder);
    if (error)
        unlink(path.c_str());
    else
        file = std::move(created);
    return error;
}

std::error_code DurableFile::open(const std::filesystem::path& path, DurableFile& file, std::string& content)
{
    const int descriptor = open_existing(path, O_RDWR);
    if (descriptor < 0)
        return last_error();
    DurableFile opened(descriptor);
    std::error_code error = check_is_own_file(descriptor);
    if (!error)
        error = lock(descriptor);
    std::string bytes;
    if (!error)
        error = read_all(descriptor, bytes);
    if (error)
        return error;
    content = std::move(bytes);
    file = std::move(opened);
    return {};
}

std::error_code DurableFile::read(const std::filesystem::path& path, std::string& content)
{
    const int descriptor = open_existing(path, O_RDONLY);
    if (descriptor < 0)
        return last_error();
    const DurableFile opened(descriptor);
    std::string bytes;
    std::error_code error = check_is_own_file(descriptor);
    if (!error)
        error = read_all(descriptor, bytes);
    if (!error)
        content = std::move(bytes);
    return error;
}

// What is written to memory that is shared with the file is the file's at once, for every process, and stays when this
// one ends. A page that the file system finds no room for would end the process when it is first written to; asking for
// all of them beforehand tells that, and the calls of old take over. So they do where the system cannot be asked.
void DurableFile::ease_overwrites(std::size_t length) noexcept
{
    if (length == 0 || !in_memory_.empty())
        return;
    void* const memory = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor(handle_), 0);
    if (memory == MAP_FAILED) // NOLINT(performance-no-int-to-ptr): the system's own macro
        return;
    if (madvise(memory, length, MADV_POPULATE_WRITE) == 0)
        in_memory_ = {static_cast<char*>(memory), length};
    else
        munmap(memory, length);
}

bool DurableFile::overwrite(std::size_t offset, char byte) noexcept
{
    if (offset < in_memory_.size()) {
        in_memory_[offset] = byte;
        return true;
    }
    return pwrite(descriptor(handle_), &byte, 1, static_cast<off_t>(offset)) == 1;
}

// The kernel keeps account of which shared pages were written to, so they are written with the rest.
void DurableFile::sync() noexcept { fdatasync(descriptor(handle_)); }

} // namespace multirename
