#include "platform/durable_file.h"

#include <windows.h>

#include "platform/user_folders.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/full_path.h"
#include "platform/windows/last_error.h"

namespace multirename {

// A file that is opened without sharing is locked for as long as it is open: nobody else can open or remove it. Its
// rights are those of its folder, which in the user's own part of the disk let nobody else in.

namespace {

constexpr DWORD nobody_else = 0;

HANDLE handle_of(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle); // NOLINT(performance-no-int-to-ptr): handles are pointers in name only
}

UniqueFile open_alone(const std::filesystem::path& path, DWORD disposition)
{
    return UniqueFile(CreateFileW(long_path(path.native()).c_str(), GENERIC_READ | GENERIC_WRITE, nobody_else, nullptr,
                                  disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::intptr_t released(UniqueFile file) { return reinterpret_cast<std::intptr_t>(file.release()); }

} // namespace

DurableFile::~DurableFile()
{
    if (is_open())
        CloseHandle(handle_of(handle_));
}

std::error_code DurableFile::create(const std::filesystem::path& path, const Content& content, DurableFile& file)
{
    UniqueFile created = open_alone(path, CREATE_NEW);
    if (!created)
        return last_error();
    const HANDLE opened = created.get();
    std::error_code error = content(
        [opened](std::string_view piece) { return write_all(opened, piece) ? std::error_code() : last_error(); });
    if (!error && FlushFileBuffers(opened) == FALSE)
        error = last_error();
    if (!error) {
        file = DurableFile(released(std::move(created)));
        return {};
    }
    created = UniqueFile();
    DeleteFileW(long_path(path.native()).c_str());
    return error;
}

std::error_code DurableFile::open(const std::filesystem::path& path, DurableFile& file, std::string& content)
{
    UniqueFile opened = open_alone(path, OPEN_EXISTING);
    if (!opened)
        return last_error();
    std::string bytes;
    if (!read_all(opened.get(), bytes))
        return last_error();
    content = std::move(bytes);
    file = DurableFile(released(std::move(opened)));
    return {};
}

std::error_code DurableFile::read(const std::filesystem::path& path, std::string& content)
{
    return read_file(path, content);
}

void DurableFile::ease_overwrites(std::size_t) noexcept { }

bool DurableFile::overwrite(std::size_t offset, char byte) noexcept
{
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(std::uint64_t{offset} >> 32U);
    DWORD written = 0;
    return WriteFile(handle_of(handle_), &byte, 1, &written, &place) != FALSE && written == 1;
}

void DurableFile::sync() noexcept { FlushFileBuffers(handle_of(handle_)); }

} // namespace multirename
