// Names, a line each: the fast search for their pattern finds what the plain one finds.

#include "fuzz_input.h"
#include "pattern/match_name.h"
#include "pattern/pattern_analyser.h"
#include "pattern/pattern_analyser_reference.h"

namespace multirename {

namespace {

constexpr std::uint64_t most_steps = 200'000;
constexpr std::size_t most_names = 24;

} // namespace

void check_input(FuzzInput input)
{
    std::vector<std::u16string> names = input.next_texts(most_names);
    for (std::u16string& name : names)
        std::erase(name, u':');
    const std::vector<std::u16string_view> views(names.begin(), names.end());
    for (const bool number_mode : {true, false}) {
        const std::u16string pattern = pattern_of_names(views, number_mode);
        const auto expected = reference_pattern_of_names(views, number_mode, most_steps);
        require(!expected || pattern == *expected, "The fast search finds what the plain one finds.");
        if (number_mode)
            continue;
        const NamePattern parsed = parsePattern(pattern, u"", NameMode::WholeName);
        for (const std::u16string& name : names) {
            const bool has_markers = name.find_first_of(u"*\\") != std::u16string::npos; // which names cannot hold
            require(has_markers || matchName(name, parsed.parts).matched, "Each name fits the pattern of all of them.");
        }
    }
}

} // namespace multirename
