// How a pattern is found. The text that all names begin with and the text that they all end with are taken off first;
// while numbers are recognised, a run of digits that differs between names may stand in either as one ":" (a character
// that no file name holds; it becomes "#" at the very end). What is left in the middle is split at the longest run of
// characters that all middles hold, then the parts before and behind it in the same way, until nothing is common any
// more, which is a wild part.

#include "pattern/pattern_analyser.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "pattern/common_affixes.h"
#include "pattern/middle_pattern.h"
#include "pattern/number_mark.h"

namespace multirename {

namespace {

std::u16string with_marks_shown(std::u16string_view pattern, bool number_mode)
{
    std::u16string shown = escape_hashes(pattern);
    if (number_mode)
        std::replace(shown.begin(), shown.end(), number_mark, u'#');
    return shown;
}

// Either all extensions are one, or they are not common.
class CommonExtension {
public:
    void add(std::u16string_view extension)
    {
        if (extension.empty() || (first_ && *first_ != extension))
            all_same_ = false;
        else
            first_ = extension;
    }

    [[nodiscard]] std::u16string text() const
    {
        if (!first_)
            return {};
        return std::u16string(all_same_ ? *first_ : u".*");
    }

private:
    std::optional<std::u16string_view> first_;
    bool all_same_ = true;
};

} // namespace

std::u16string pattern_of_names(std::span<const std::u16string_view> names, bool numberMode)
{
    CommonAffixes affixes = common_affixes(names, numberMode);
    if (affixes.is_all)
        return with_marks_shown(affixes.prefix, numberMode);
    const std::u16string middle = middle_pattern(names, std::move(affixes.middles), numberMode);
    return with_marks_shown(affixes.prefix + middle + affixes.suffix, numberMode);
}

ListedNames collectNames(const FileSet& files, NameMode nameMode)
{
    ListedNames listed;
    CommonExtension extension;
    listed.names.reserve(files.listed.size());
    files.for_each_entry([&](const Filename& entry) {
        if (entry.not_listed)
            return;
        if (nameMode == NameMode::WholeName) {
            listed.names.push_back(entry.name);
            return;
        }
        const std::u16string_view base = base_name(entry.name);
        listed.names.push_back(base);
        extension.add(entry.name.substr(base.size()));
    });
    listed.extensionText = extension.text();
    return listed;
}

ExtractedPattern computeNamePattern(const FileSet& files, bool numberMode, NameMode nameMode)
{
    ListedNames listed = collectNames(files, nameMode);
    return {pattern_of_names(listed.names, numberMode), std::move(listed.extensionText)};
}

} // namespace multirename
