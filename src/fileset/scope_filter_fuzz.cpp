// A line with the pattern and one with the text, both in upper case already.

#include "fileset/scope_filter.h"

#include "fileset/scope_filter_reference.h"
#include "fuzz_input.h"

namespace multirename {

namespace {

constexpr std::uint64_t most_steps = 100'000;

} // namespace

void check_input(FuzzInput input)
{
    const std::u16string pattern = input.next_text();
    const std::u16string text = input.rest_text();
    const bool matches = matches_scope_pattern(pattern, text);
    if (ends_within_escape(pattern))
        return;
    const std::optional<bool> expected = reference_matches_scope_pattern(pattern, text, most_steps);
    require(!expected || matches == *expected, "The filter takes what the rules take one by one.");
}

} // namespace multirename
