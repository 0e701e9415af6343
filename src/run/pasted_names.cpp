#include "run/pasted_names.h"

#include "fileset/filename.h"

namespace multirename {

namespace {

constexpr std::size_t none = std::u16string_view::npos;
constexpr std::u16string_view white_space = u" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006"
                                            u"\u2007\u2008\u2009\u200A\u2028\u2029\u202F\u205F\u3000";

std::u16string_view trimmed(std::u16string_view line)
{
    const std::size_t first = line.find_first_not_of(white_space);
    return first == none ? std::u16string_view() : line.substr(first, line.find_last_not_of(white_space) - first + 1);
}

} // namespace

bool holds_forbidden_character(std::u16string_view text) noexcept { return text.find_first_of(u"<>:\"/\\|?*") != none; }

std::vector<std::u16string_view> pasted_lines(std::u16string_view text)
{
    std::vector<std::u16string_view> lines;
    while (true) {
        const std::size_t line_feed = text.find(u'\n');
        const bool is_last_piece = line_feed == none;
        const std::u16string_view piece = text.substr(0, line_feed);
        const std::u16string_view line = trimmed(piece);
        if (!line.empty() || (is_last_piece && !piece.empty()))
            lines.push_back(line);
        if (is_last_piece)
            return lines;
        text.remove_prefix(line_feed + 1);
    }
}

std::u16string pasted_name(std::u16string_view line, std::u16string_view old_name, bool allow_extension_changes)
{
    if (allow_extension_changes)
        return std::u16string(line);
    const std::u16string_view kept_extension = extension_of(old_name);
    if (kept_extension.empty())
        return std::u16string(line.substr(0, line.find(u'.')));
    return std::u16string(base_name(line)).append(kept_extension);
}

} // namespace multirename
