#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace multirename {

/// A file that outlives the end of the process and of the machine: what `create` was given is on the disk when it
/// returns. While one process has it open no other can open it here.
class DurableFile {
public:
    /// Takes a piece of a file's content.
    using Sink = std::function<std::error_code(std::string_view)>;
    /// Hands a file's content to the sink, piece by piece, and gives the first error, the sink's or its own. May be
    /// called again, to begin anew.
    using Content = std::function<std::error_code(const Sink&)>;

    DurableFile() = default;
    DurableFile(DurableFile&& other) noexcept :
        handle_(std::exchange(other.handle_, no_handle)), in_memory_(std::exchange(other.in_memory_, {}))
    {
    }
    DurableFile& operator=(DurableFile&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        std::swap(in_memory_, other.in_memory_);
        return *this;
    }
    DurableFile(const DurableFile&) = delete;
    DurableFile& operator=(const DurableFile&) = delete;
    ~DurableFile();

    /// Makes a new file that only its owner may read, with this content, and waits until it and its name are on the
    /// disk. The error equals errc::file_exists when there is a file of that name; on any error no new file is left.
    /// (On POSIX also where a file does not come to belong to this user: it could not be opened again.)
    /// Where the system allows it (on POSIX) the name appears only once all of the content is on the disk; a process
    /// that ends before leaves at most a file whose name has ".new" behind it.
    [[nodiscard]] static std::error_code create(const std::filesystem::path& path, const Content& content,
                                                DurableFile& file);
    [[nodiscard]] static std::error_code create(const std::filesystem::path& path, std::string_view content,
                                                DurableFile& file)
    {
        return create(
            path, [content](const Sink& sink) { return sink(content); }, file);
    }

    /// Opens a file and reads all of it. The error equals errc::device_or_resource_busy when another process has it
    /// open here. On POSIX a link is not followed, a file of another user gives errc::operation_not_permitted, and what
    /// is no file errc::not_supported: nobody else can have this user do what a file says.
    [[nodiscard]] static std::error_code open(const std::filesystem::path& path, DurableFile& file,
                                              std::string& content);

    /// Reads all of a file that `open` would take, also while another process has it open, where the system allows that
    /// (on POSIX).
    [[nodiscard]] static std::error_code read(const std::filesystem::path& path, std::string& content);

    /// Has bytes before `length` (at most that of the file) overwritten without a call of the system each, where it
    /// offers that; nothing else changes. For files that stay as long as they are while they are open.
    void ease_overwrites(std::size_t length) noexcept;

    /// Overwrites one byte within the file. Safe against the end of the process at once, against that of the machine
    /// after `sync`. False when it cannot be written.
    bool overwrite(std::size_t offset, char byte) noexcept;

    /// Waits until what was overwritten is on the disk, as far as the system lets that be done.
    void sync() noexcept;

    [[nodiscard]] bool is_open() const noexcept { return handle_ != no_handle; }

private:
    static constexpr std::intptr_t no_handle = -1; // of both systems
    explicit DurableFile(std::intptr_t handle) noexcept : handle_(handle) { }

    std::intptr_t handle_ = no_handle;
    std::span<char> in_memory_; // the file's first bytes, where the system shares them
};

} // namespace multirename
