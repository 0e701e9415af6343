#include "pattern/mode_patterns.h"

#include "pattern/number_part.h"
#include "pattern/pattern_analyser.h"

namespace multirename {

namespace {

// Whether the second pattern is the first and the extension that all names share.
bool adds_extension(const NamePattern& base, const NamePattern& with_extension, std::u16string_view extension)
{
    return extension != u".*" && with_extension.patternText == base.patternText + escape_hashes(extension);
}

// Where numbers are taken as text there are no number parts. A name that fits a pattern fits it with an extension that
// all names share as well, and its numbers are the same, so that the names need not be matched once more.
void set_base_numbers_from(const FileSet& files, const ListedNames& base_names, ModePatterns& modes)
{
    NamePattern& base = modes.patterns[ModePatterns::index(false, false)];
    NamePattern& with_extension = modes.patterns[ModePatterns::index(false, true)];
    const SmallestNumbers smallest = smallest_numbers(base_names.names, base);
    set_base_numbers(base, smallest);
    if (smallest.all_names_fit && adds_extension(base, with_extension, modes.extension_text))
        set_base_numbers(with_extension, smallest);
    else
        computeBaseNumbers(files, with_extension);
}

} // namespace

ModePatterns computeModePatterns(const FileSet& files, bool whole_names)
{
    ModePatterns modes;
    const ListedNames base = collectNames(files, NameMode::BaseOnly);
    const ListedNames whole = whole_names ? collectNames(files, NameMode::WholeName) : ListedNames();
    modes.extension_text = base.extensionText;
    for (const bool as_text : {false, true}) {
        const std::u16string pattern = pattern_of_names(base.names, !as_text);
        modes.patterns[ModePatterns::index(as_text, false)] =
            parsePattern(pattern, base.extensionText, NameMode::BaseOnly);
        modes.patterns[ModePatterns::index(as_text, true)] = whole_names
            ? parsePattern(pattern_of_names(whole.names, !as_text), whole.extensionText, NameMode::WholeName)
            : parsePattern(pattern, base.extensionText, NameMode::BaseWithExtensionPart);
    }
    set_base_numbers_from(files, base, modes);
    return modes;
}

void refresh_base_numbers(const FileSet& files, ModePatterns& modes)
{
    set_base_numbers_from(files, collectNames(files, NameMode::BaseOnly), modes);
}

} // namespace multirename
