#pragma once

#include <string>
#include <string_view>

namespace multirename {

// Names, paths and words as this system hands them to programs, in bytes. On POSIX these are the bytes on disk, and
// text/posix_name.h tells what becomes of those that a name may not hold behind the border; on Windows they are UTF-8,
// in which halves of surrogate pairs may stand alone.

[[nodiscard]] std::u16string name_from_native(std::string_view bytes);
/// native_from_name(name_from_native(b)) is b for every name b of this system.
[[nodiscard]] std::string native_from_name(std::u16string_view name);
/// The same into memory that is used again, for many names.
void native_from_name(std::u16string_view name, std::string& bytes);

/// Whether the bytes can be the name of an entry within its folder: not empty, not "." or "..", and without what stands
/// between the parts of a path.
[[nodiscard]] bool is_native_name(std::string_view bytes) noexcept;

/// A whole path, with "\" between its parts behind the border on every system.
[[nodiscard]] std::u16string path_from_native(std::string_view bytes);
[[nodiscard]] std::string native_from_path(std::u16string_view path);

/// Text that the user typed: no character of it is moved aside.
[[nodiscard]] std::u16string typed_from_native(std::string_view bytes);

/// A line of a text file without what only marks its end or the file's beginning: on Windows a carriage return and, on
/// the first line, a byte order mark; on POSIX every byte belongs to the line.
[[nodiscard]] std::string_view line_of_text_file(std::string_view line, bool is_first) noexcept;

/// The name as people see it, still in UTF-16.
[[nodiscard]] std::u16string shown_native_name(std::u16string_view name);

/// The path as people see it, still in UTF-16, with the system's own separator.
[[nodiscard]] std::u16string shown_native_path(std::u16string_view path);

/// Whether the name, made of `old_name` and of what the user typed, can be written on this system so that it reads the
/// same afterwards. False on POSIX where a half of a surrogate pair stands alone or a stray byte comes from neither, or
/// where stray bytes have come together to a character; on Windows every name can be written.
[[nodiscard]] bool can_be_written(std::u16string_view new_name, std::u16string_view old_name,
                                  std::u16string_view typed);

} // namespace multirename
