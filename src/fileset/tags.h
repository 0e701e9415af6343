#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fileset/filename.h"
#include "text/bounded_text.h"

namespace multirename {

/// What one part of the pattern took from an old name.
struct CapturedText {
    std::u16string_view text;
    bool is_numbered = true; ///< counts for the tag <N:k>: wild and number parts, and text parts that are not empty
};

/// Reads the tag whose first character, the one after "<", stands at `position`; true when it is well formed. Then, and
/// only with an entry, the text that the tag stands for is appended to `output`.
///
/// | tag | stands for |
/// |---|---|
/// | <D> <D:format> | the last write, in the format of `date_format`, by default yyyymmdd |
/// | <C> <C:format> | the creation, likewise |
/// | <S> <S:digits unit> | the size in bytes, B or K kilobytes, M megabytes, G gigabytes, A what fits, with letter |
/// | <F> | the folder's name; nothing for the root of a drive |
/// | <N:k> | the k-th numbered captured text; nothing when there are fewer |
/// | <start,step:digits F> | a running number, all but the start optional; with F anew in each folder |
///
/// Letters count in either case. A date that cannot be told gives nothing and is well formed all the same. Numbers
/// saturate at 64 bits.
/// In every case `position` ends just past the next ">", or at the next "<" or the end of the text if that comes first.
bool expand_tag(std::u16string_view text, std::size_t& position, const Filename* entry,
                std::span<const CapturedText> captures, BoundedText& output);

/// Whether a tag in the text, well formed or not, is one that tells of the entry's times or its size; see
/// `RenameFolder::read_details`.
[[nodiscard]] bool tags_read_details(std::u16string_view text) noexcept;

/// The digits of `value`, whose sign is dropped, with zeros in front up to `digits` digits, at most 255.
[[nodiscard]] std::u16string number_text(std::int64_t value, std::int64_t digits);

/// Translates a format of keywords (yyyy, mm, dd, timehms, month ...) into one for `format_time`: the first keyword
/// that matches at each place is taken, lower case only; other characters are copied as their low 8 bits, and those
/// that a file name may not hold, "%" and NUL are dropped, so that neither can come out.
[[nodiscard]] std::string date_format(std::u16string_view format);

} // namespace multirename
