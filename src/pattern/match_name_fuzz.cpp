// Matching and formatting: a line with the pattern text, one with what is done with the parts, then names.

#include "fileset/testing/test_files.h"
#include "fuzz_input.h"
#include "pattern/match_name.h"
#include "pattern/match_name_reference.h"
#include "pattern/new_name.h"
#include "pattern/number_part.h"

namespace multirename {

namespace {

constexpr std::uint64_t most_steps = 20'000;

// Two letters for each part.
void apply_settings(NamePattern& pattern, std::string_view settings)
{
    for (NamePart& part : pattern.parts) {
        if (settings.size() < 2)
            return;
        const auto what = static_cast<unsigned char>(settings[0]);
        const auto number = static_cast<unsigned char>(settings[1]);
        settings.remove_prefix(2);
        part.length = number - 5;
        if (part.kind == NamePartKind::Wild) {
            part.caseStyle = static_cast<CaseStyle>(what % 16);
            part.truncate = (what & 16U) != 0;
            part.minLength = (what & 32U) != 0 ? number % 4 : 0;
            part.fixedLength = (what & 64U) != 0;
            part.findText = (what & 128U) != 0 ? u"a" : u"";
            part.replaceText = (number & 1U) != 0 ? u"aa" : u"";
        } else if (part.kind == NamePartKind::Number) {
            part.clearText = what % 8 == 0;
            part.leadingZeros = static_cast<LeadingZerosMode>(what % 3);
            part.renumber = (what & 16U) != 0;
            part.startNumber = (what & 32U) != 0 ? INT64_MAX - number : number - 3;
            part.baseNumber = (what & 64U) != 0 ? INT64_MAX - 7 : number % 7;
        }
    }
}

void check_match(std::u16string_view name, const NamePattern& pattern, RememberedMatches& remembered)
{
    const NameMatch match = matchName(name, pattern.parts);
    std::size_t taken = 0;
    for (const PartCapture& capture : match.captures)
        taken += capture.text.size();
    require(!match.matched || taken == name.size(), "A match takes the whole name.");
    require(taken <= name.size(), "Nothing is taken twice.");

    const NameMatch& again = remembered.next(name);
    require(again.matched == match.matched && again.captures.size() == match.captures.size(),
            "What is remembered is what was matched.");
    const std::optional<ReferenceMatch> expected = reference_match(name, pattern.parts, most_steps);
    if (expected)
        require(match.matched == expected->matched && match.captures.size() == expected->captures.size(),
                "The match is that of the rules taken one by one.");
    for (std::size_t i = 0; i < match.captures.size(); ++i) {
        require(again.captures[i].text == match.captures[i].text, "What is remembered is what was captured.");
        require(!expected || match.captures[i].text == expected->captures[i],
                "The captures are those of the rules taken one by one.");
        require(formatNumberPart(NamePart::make_number(), match.captures[i].text) == match.captures[i].text,
                "A number that nothing is done with stays what it is.");
    }
}

} // namespace

void check_input(FuzzInput input)
{
    const std::u16string text = input.next_text();
    NamePattern pattern = parsePattern(text, u"", NameMode::WholeName);
    const NamePattern unedited = pattern;
    apply_settings(pattern, input.next_bytes());
    const std::vector<std::u16string> names = input.next_texts(16);
    RememberedMatches remembered(pattern.parts);
    for (int round = 0; round < 2; ++round) {
        remembered.start_round();
        for (const std::u16string& name : names)
            check_match(name, pattern, remembered);
    }

    TextStore texts;
    for (const std::u16string& name : names) {
        RenameFolder folder(test_folder);
        Filename entry;
        entry.name = name;
        entry.folder = &folder;
        entry.has_details = true;
        makeNewName(unedited, entry, texts);
        const bool is_name = name.find(u'<') == std::u16string::npos; // which would begin a tag, and names cannot hold
        require(!is_name || !matchName(name, unedited.parts).matched || entry.new_name == name,
                "A pattern that nobody edited changes no name that it matches.");
        makeNewName(pattern, entry, texts);
        require(entry.new_name.size() <= 260 * pattern.parts.size(), "Of each part 260 characters count.");
    }
}

} // namespace multirename
